// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "confinement/ChildProcess.h"

#include <fcntl.h>
#include <poll.h>
#include <sys/prctl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <csignal>
#include <cstdlib>
#include <utility>

namespace quorvane {

ChildProcess::ChildProcess(const std::function<int()> &work)
{
    std::array<int, 2> ends{};
    if (::pipe2(ends.data(), O_CLOEXEC) != 0)
        return;
    m_alive = FileDescriptor(ends[0]);
    const FileDescriptor held(ends[1]);
    const pid_t parent = ::getpid();
    const pid_t id = ::fork();
    if (id < 0)
        return;
    if (id == 0) {
        ::prctl(PR_SET_PDEATHSIG, SIGKILL);
        if (::getppid() != parent)
            ::_exit(EXIT_FAILURE);
        ::_exit(work());
    }
    m_id = id;
}

ChildProcess::~ChildProcess()
{
    (void)finish();
}

bool ChildProcess::isOverWithin(std::chrono::milliseconds limit)
{
    pollfd end{m_alive.value(), POLLIN, 0};
    m_isOver = m_id == 0 || ::poll(&end, 1, static_cast<int>(limit.count())) > 0;
    return m_isOver;
}

std::optional<int> ChildProcess::finish()
{
    const pid_t id = std::exchange(m_id, 0);
    if (id == 0)
        return {};
    if (!m_isOver)
        ::kill(id, SIGKILL);
    int state = 0;
    while (::waitpid(id, &state, 0) < 0) {
        if (errno != EINTR)
            return {};
    }
    if (!WIFEXITED(state))
        return {};
    return WEXITSTATUS(state);
}

} // namespace quorvane
