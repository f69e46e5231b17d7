// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "process/linux/SpawnPlan.h"

#include <csignal>

#include <unistd.h>

namespace quorvane {
namespace {

std::vector<char *> pointers(std::vector<QByteArray> &texts)
{
    std::vector<char *> result;
    result.reserve(texts.size() + 1);
    for (QByteArray &text : texts)
        result.push_back(text.data());
    result.push_back(nullptr);
    return result;
}

} // namespace

SpawnPlan::SpawnPlan(int input, int output, int error)
{
    note(::posix_spawn_file_actions_init(&m_files));
    note(::posix_spawnattr_init(&m_attributes));
    planFiles(input, output, error);
    planSignals();
}

void SpawnPlan::planFiles(int input, int output, int error)
{
    note(::posix_spawn_file_actions_adddup2(&m_files, input, STDIN_FILENO));
    note(::posix_spawn_file_actions_adddup2(&m_files, output, STDOUT_FILENO));
    note(::posix_spawn_file_actions_adddup2(&m_files, error, STDERR_FILENO));
    note(::posix_spawn_file_actions_addclosefrom_np(&m_files, STDERR_FILENO + 1));
    note(::posix_spawn_file_actions_addchdir_np(&m_files, "/"));
}

// Blocked and ignored signals would pass on to the program: SIGTERM is blocked in all of our threads.
void SpawnPlan::planSignals()
{
    sigset_t all;
    sigset_t none;
    ::sigfillset(&all);
    ::sigemptyset(&none);
    note(::posix_spawnattr_setsigdefault(&m_attributes, &all));
    note(::posix_spawnattr_setsigmask(&m_attributes, &none));
    note(::posix_spawnattr_setpgroup(&m_attributes, 0));
    note(::posix_spawnattr_setflags(&m_attributes,
                                    POSIX_SPAWN_SETSIGDEF | POSIX_SPAWN_SETSIGMASK | POSIX_SPAWN_SETPGROUP));
}

SpawnPlan::~SpawnPlan()
{
    ::posix_spawnattr_destroy(&m_attributes);
    ::posix_spawn_file_actions_destroy(&m_files);
}

Result<pid_t> SpawnPlan::spawn(std::vector<QByteArray> arguments, std::vector<QByteArray> environment) const
{
    pid_t leader = 0;
    int error = m_error;
    if (error == 0)
        error = ::posix_spawn(&leader, arguments.front().constData(), &m_files, &m_attributes,
                              pointers(arguments).data(), pointers(environment).data());
    if (error != 0)
        return Failure(std::error_code(error, std::generic_category()));
    return leader;
}

void SpawnPlan::note(int error)
{
    if (m_error == 0)
        m_error = error;
}

} // namespace quorvane
