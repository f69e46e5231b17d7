// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "updates/linux/TakeoverGuard.h"

#include "updates/linux/DurableFolder.h"
#include "updates/linux/SideProcess.h"
#include "updates/linux/TrialMark.h"
#include "updates/linux/TrialRecord.h"

#include <csignal>

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

/// Whether the new version has failed and nobody looks after it; looked at until that is known.
bool awaitFailure(int process, const DurableFolder &root, Clock::time_point end)
{
    bool hasBegun = false;
    while (true) {
        const bool isDead = hasEnded(process);
        if (!root.has(TrialRecord::file))
            return false; // decided
        const bool isSeen = TrialMark::isSeen(root);
        if (isDead) // else it left its trial to another process, or to a later one
            return !isSeen || TrialMark::isLeft(root);
        if (isSeen && !hasBegun) {
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

/// Has a small process bring this version back should the new one end or hang before its trial.
void beginGuard(const InstalledVersions &installed, const VersionTrial::Start &start,
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
        TrialMark::leave(root);
        start(executable);
    };
    if (process.isValid()) // without it the new version has to come to its trial alone
        static_cast<void>(SideProcess::begin({process.value()}, work));
}

} // namespace

void takeOver(const InstalledVersions &installed, const VersionTrial::Start &start,
              std::chrono::milliseconds patience)
{
    beginGuard(installed, start, patience);
    start(installed.currentExecutable());
    // It cannot be run. This version takes its place back.
    TrialMark::leave(DurableFolder(installed.root()));
    start(installed.executable(installed.own()));
}

} // namespace quorvane::TakeoverGuard
