// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "updates/linux/TrialWatcher.h"

#include "updates/linux/SideProcess.h"

#include <algorithm>
#include <array>
#include <csignal>

#include <poll.h>
#include <sys/socket.h>
#include <unistd.h>

extern "C" { // glibc 2.36 left this out of the header
#include <sys/pidfd.h>
}

namespace quorvane::TrialWatcher {

namespace {

using Clock = std::chrono::steady_clock; // stands still while the machine sleeps

/// What the small process works with.
struct Watch
{
    int process;
    int word;
    Clock::time_point killing;
    Clock::time_point end;
    bool isKilled = false;
};

int waitingTime(Clock::time_point deadline)
{
    const auto left = std::chrono::ceil<std::chrono::milliseconds>(deadline - Clock::now()).count();
    return static_cast<int>(std::clamp<decltype(left)>(left, 0, 60'000));
}

bool isConfirmed(const Watch &watch)
{
    char word = 0;
    return ::recv(watch.word, &word, 1, MSG_DONTWAIT) == 1;
}

/// Waits until the process has ended unconfirmed; false when there is nothing more to do.
bool awaitFailure(Watch &watch)
{
    // The end of the other's socket says nothing: it may still be busy dying.
    bool isSocketOpen = true;
    while (Clock::now() < watch.end) {
        std::array<pollfd, 2> files{
            {{watch.process, POLLIN, 0}, {isSocketOpen ? watch.word : -1, POLLIN, 0}}};
        ::poll(files.data(), files.size(), waitingTime(watch.isKilled ? watch.end : watch.killing));
        // Looked at first: who confirms and ends at once has confirmed.
        if (isConfirmed(watch))
            return false;
        isSocketOpen = files[1].revents == 0;
        if (files[0].revents != 0)
            return true;
        if (!watch.isKilled && Clock::now() >= watch.killing) {
            ::pidfd_send_signal(watch.process, SIGKILL, nullptr, 0);
            watch.isKilled = true;
        }
    }
    return false;
}

} // namespace

FileDescriptor begin(const QString &executable, const VersionTrial::Start &start,
                     VersionTrial::WatchTimes times)
{
    const FileDescriptor process(::pidfd_open(::getpid(), 0));
    int ends[2];
    if (!process.isValid() || ::socketpair(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0, ends) != 0)
        return {};
    FileDescriptor ours(ends[0]);
    const FileDescriptor theirs(ends[1]);
    const auto now = Clock::now();
    const auto work = [&](const std::vector<int> &kept) {
        Watch watch{kept[0], kept[1], now + times.patience, now + times.end};
        if (awaitFailure(watch))
            start(executable);
    };
    if (!SideProcess::begin({process.value(), theirs.value()}, work))
        return {};
    return ours;
}

void confirm(const FileDescriptor &watcher)
{
    if (watcher.isValid())
        ::send(watcher.value(), "", 1, MSG_NOSIGNAL);
}

} // namespace quorvane::TrialWatcher
