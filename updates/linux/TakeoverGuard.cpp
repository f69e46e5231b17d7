// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "updates/linux/TakeoverGuard.h"

#include "updates/linux/DurableFolder.h"
#include "updates/linux/SideProcess.h"
#include "updates/linux/TrialRecord.h"

#include <csignal>

#include <fcntl.h>
#include <poll.h>
#include <unistd.h>

extern "C" { // glibc 2.36 left this out of the header
#include <sys/pidfd.h>
}

namespace quorvane::TakeoverGuard {

namespace {

using namespace std::chrono_literals;
using Clock = std::chrono::steady_clock;

constexpr auto look = 50ms;
/// How long a trial has to last until it is known to be looked after.
constexpr auto handoverTime = 2s;

bool hasEnded(int process)
{
    pollfd file{process, POLLIN, 0};
    return ::poll(&file, 1, static_cast<int>(look.count())) > 0;
}

/// Whether the new version has failed without having begun; looked at until that is known.
bool awaitFailure(int process, const DurableFolder &root, Clock::time_point end)
{
    bool hasBegun = false;
    while (true) {
        const bool isDead = hasEnded(process);
        const bool isOnTrial = root.has(TrialRecord::mark);
        if (!root.has(TrialRecord::file) || (hasBegun && !isOnTrial))
            return false; // proved, or it had nothing to do here
        if (isDead)
            return true;
        if (isOnTrial && !hasBegun) {
            hasBegun = true;
            end = Clock::now() + handoverTime;
        }
        if (Clock::now() < end)
            continue;
        if (hasBegun)
            return false;
        ::pidfd_send_signal(process, SIGKILL, nullptr, 0);
    }
}

} // namespace

bool begin(const InstalledVersions &installed, const VersionTrial::Start &start,
           std::chrono::milliseconds patience)
{
    const FileDescriptor process(::pidfd_open(::getpid(), 0));
    const QString executable = installed.executable(installed.own());
    const auto end = Clock::now() + patience;
    const auto work = [&](const std::vector<int> &kept) {
        const DurableFolder root(installed.root());
        if (!awaitFailure(kept[0], root, end))
            return;
        // By this mark the version that is started now knows that the new one was tried.
        static_cast<void>(root.open(TrialRecord::mark, O_RDWR | O_CREAT));
        start(executable);
    };
    return process.isValid() && SideProcess::begin({process.value()}, work);
}

} // namespace quorvane::TakeoverGuard
