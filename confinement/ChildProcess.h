// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "posix/FileDescriptor.h"

#include <chrono>
#include <functional>
#include <optional>

#include <sys/types.h>

namespace quorvane {

/// Work in a process of its own, because what libraries make of hostile bytes cannot be bounded from within:
/// they spin, run out of memory or crash. It ends with its owner, and with the process that started it.
class ChildProcess final
{
public:
    /// Begins `work`, whose result (0 to 127) is the exit status of the process. The process that calls must
    /// have only one thread.
    explicit ChildProcess(const std::function<int()> &work);
    ~ChildProcess();
    Q_DISABLE_COPY_MOVE(ChildProcess)

    /// 0 when it could not be started.
    [[nodiscard]] pid_t id() const { return m_id; }

    /// Waits so long at most; whether the process is over.
    [[nodiscard]] bool isOverWithin(std::chrono::milliseconds limit);

    /// Ends the process if it still runs. Returns the result of its work; nothing when it ended otherwise or
    /// could not be started.
    [[nodiscard]] std::optional<int> finish();

private:
    pid_t m_id = 0;
    /// Its other end is the process's, and closes with it.
    FileDescriptor m_alive;
    bool m_isOver = false;
};

} // namespace quorvane
