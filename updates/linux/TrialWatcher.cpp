// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "updates/linux/TrialWatcher.h"

#include <algorithm>
#include <array>
#include <climits>
#include <csignal>

#include <fcntl.h>
#include <poll.h>
#include <sys/prctl.h>
#include <sys/socket.h>
#include <sys/wait.h>
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

void closeAllBut(int one, int other)
{
    const auto low = static_cast<unsigned>(std::min(one, other));
    const auto high = static_cast<unsigned>(std::max(one, other));
    const auto closeRange = [](unsigned first, unsigned last) {
        if (first <= last)
            ::close_range(first, last, 0);
    };
    closeRange(STDERR_FILENO + 1, low - 1);
    closeRange(low + 1, high - 1);
    closeRange(high + 1, UINT_MAX);
}

// In a session of its own, so that no terminal's keys reach it, and with nobody waiting for its output to
// end.
void leaveProcess(Watch &watch)
{
    ::prctl(PR_SET_NAME, "quorvane-trial");
    // A program that was started without standard streams has other files in their places.
    watch.process = ::fcntl(watch.process, F_DUPFD_CLOEXEC, STDERR_FILENO + 1);
    watch.word = ::fcntl(watch.word, F_DUPFD_CLOEXEC, STDERR_FILENO + 1);
    const int nowhere = ::open("/dev/null", O_RDWR);
    for (const int stream : {STDIN_FILENO, STDOUT_FILENO, STDERR_FILENO})
        nowhere < 0 ? ::close(stream) : ::dup2(nowhere, stream);
    closeAllBut(watch.process, watch.word);
}

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
    Watch watch{process.value(), theirs.value(), now + times.patience, now + times.end};

    const pid_t child = ::fork();
    if (child == 0) {
        ::setsid();
        // A child's child, so that it is nobody's zombie here.
        if (::fork() == 0) {
            leaveProcess(watch);
            if (awaitFailure(watch))
                start(executable);
        }
        ::_exit(0);
    }
    if (child < 0)
        return {};
    while (::waitpid(child, nullptr, 0) < 0 && errno == EINTR)
        continue;
    return ours;
}

void confirm(const FileDescriptor &watcher)
{
    if (watcher.isValid())
        ::send(watcher.value(), "", 1, MSG_NOSIGNAL);
}

} // namespace quorvane::TrialWatcher
