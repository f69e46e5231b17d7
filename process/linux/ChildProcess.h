// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "core/Result.h"
#include "posix/FileDescriptor.h"
#include "process/ProcessRunner.h"
#include "process/linux/SpawnPlan.h"

#include <sys/types.h>

namespace quorvane {

/// A started program, the leader of a process group of its own. Whoever starts it has to reap it.
class ChildProcess final
{
public:
    /// Fails with the system's error.
    [[nodiscard]] static Result<ChildProcess> start(const ProcessRequest &request, const SpawnPlan &plan);

    /// A descriptor that poll(2) finds readable when the program has ended.
    [[nodiscard]] int endDescriptor() const { return m_process.value(); }

    /// Sends a signal to the program and to all that it started and that stayed in its group.
    void signalGroup(int signal) const;

    /// Kills what is left of the group, waits for the program's end and returns its exit status, or 128 and
    /// the number of the signal that ended it. Once only.
    [[nodiscard]] Result<int> reap() const;

private:
    ChildProcess(pid_t leader, FileDescriptor process);

    pid_t m_leader;
    FileDescriptor m_process;
};

} // namespace quorvane
