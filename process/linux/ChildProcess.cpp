// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "process/linux/ChildProcess.h"

#include "posix/SystemError.h"

#include <QFile>

#include <csignal>

#include <fcntl.h>
#include <sys/wait.h>

extern "C" { // glibc 2.36 left this out of the header
#include <sys/pidfd.h>
}

namespace quorvane {

ChildProcess::ChildProcess(pid_t leader, FileDescriptor process)
    : m_leader(leader)
    , m_process(std::move(process))
{
}

Result<ChildProcess> ChildProcess::start(const ProcessRequest &request, const SpawnPlan &plan)
{
    std::vector<QByteArray> arguments{QFile::encodeName(request.program)};
    for (const QString &argument : request.arguments)
        arguments.push_back(QFile::encodeName(argument));
    std::vector<QByteArray> environment;
    environment.reserve(request.environment.size());
    for (const auto &[name, value] : request.environment)
        environment.push_back(name + '=' + value);

    const Result<pid_t> leader = plan.spawn(std::move(arguments), std::move(environment));
    if (!leader)
        return Failure(leader.error());
    FileDescriptor process(::pidfd_open(*leader, 0));
    if (!process.isValid()) { // too many open files
        const std::error_code error = systemError();
        ::kill(-*leader, SIGKILL);
        ::waitpid(*leader, nullptr, 0);
        return Failure(error);
    }
    return ChildProcess(*leader, std::move(process));
}

// Until the leader is reaped, no other group can get its number.
void ChildProcess::signalGroup(int signal) const
{
    ::kill(-m_leader, signal);
}

Result<int> ChildProcess::reap() const
{
    signalGroup(SIGKILL);
    ::pidfd_send_signal(m_process.value(), SIGKILL, nullptr, 0); // it may have changed its group
    siginfo_t end{};
    int result = 0;
    do
        result = ::waitid(P_PIDFD, static_cast<id_t>(m_process.value()), &end, WEXITED);
    while (result != 0 && errno == EINTR);
    if (result != 0)
        return Failure(systemError());
    return end.si_code == CLD_EXITED ? end.si_status : 128 + end.si_status;
}

} // namespace quorvane
