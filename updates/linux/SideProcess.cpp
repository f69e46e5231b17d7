// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "updates/linux/SideProcess.h"

#include <algorithm>
#include <cerrno>
#include <climits>
#include <csignal>

#include <fcntl.h>
#include <sys/prctl.h>
#include <sys/wait.h>
#include <unistd.h>

namespace quorvane::SideProcess {

namespace {

void closeAllBut(std::vector<int> kept)
{
    std::ranges::sort(kept);
    unsigned next = STDERR_FILENO + 1;
    for (const int file : kept) {
        const auto number = static_cast<unsigned>(file);
        if (number > next)
            ::close_range(next, number - 1, 0);
        next = number + 1;
    }
    ::close_range(next, UINT_MAX, 0);
}

std::vector<int> leaveProcess(std::vector<int> kept)
{
    ::prctl(PR_SET_NAME, "quorvane-trial");
    // What is held back for a program that listens to it would not end this one.
    sigset_t none;
    ::sigemptyset(&none);
    ::pthread_sigmask(SIG_SETMASK, &none, nullptr);
    // A program that was started without standard streams has other files in their places.
    for (int &file : kept)
        file = ::fcntl(file, F_DUPFD_CLOEXEC, STDERR_FILENO + 1);
    const int nowhere = ::open("/dev/null", O_RDWR);
    for (const int stream : {STDIN_FILENO, STDOUT_FILENO, STDERR_FILENO})
        nowhere < 0 ? ::close(stream) : ::dup2(nowhere, stream);
    closeAllBut(kept);
    return kept;
}

} // namespace

bool begin(const std::vector<int> &kept, const Work &work)
{
    const pid_t child = ::fork();
    if (child == 0) {
        ::setsid();
        // A child's child, so that it is nobody's zombie here.
        const pid_t side = ::fork();
        if (side == 0)
            work(leaveProcess(kept));
        ::_exit(side < 0 ? 1 : 0);
    }
    int status = 1;
    while (child > 0 && ::waitpid(child, &status, 0) < 0 && errno == EINTR)
        continue;
    return child > 0 && status == 0;
}

} // namespace quorvane::SideProcess
