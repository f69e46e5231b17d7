// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "app/CommandLineStreams.h"

#include <cerrno>
#include <csignal>
#include <cstdio>
#include <cstdlib>

#include <fcntl.h>
#include <unistd.h>

namespace quorvane::CommandLineStreams {

namespace {

constexpr const char *nowhere = "/dev/null";

/// Each is opened the wrong way round, so that using it fails as it would have.
void openIfClosed(int descriptor, int wrongWay)
{
    if (::fcntl(descriptor, F_GETFD) == -1 && errno == EBADF)
        static_cast<void>(::open(nowhere, wrongWay)); // takes the lowest free number
}

} // namespace

// At the level of the system, since some libraries write there themselves.
void prepare()
{
    openIfClosed(STDIN_FILENO, O_WRONLY);
    openIfClosed(STDOUT_FILENO, O_RDONLY);
    const int silence = ::open(nowhere, O_WRONLY | O_CLOEXEC);
    if (silence >= 0 && silence != STDERR_FILENO) {
        ::dup2(silence, STDERR_FILENO);
        ::close(silence);
    }
    std::signal(SIGPIPE, SIG_IGN);
}

void print(const QString &line)
{
    std::printf("%s\n", qUtf8Printable(line));
}

void end(int status)
{
    std::fflush(stdout);
    std::_Exit(status);
}

} // namespace quorvane::CommandLineStreams
