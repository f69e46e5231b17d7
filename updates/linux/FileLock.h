// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "posix/FileDescriptor.h"

#include <chrono>

namespace quorvane {

enum class LockKind { shared, exclusive };

enum class LockOutcome {
    /// This process has the lock.
    taken,
    /// Another one has it.
    refused,
    /// There are no locks for this file: nobody has it.
    impossible,
};

/// Takes the lock (flock(2)) of an open file, without waiting. It is held until every copy of the descriptor
/// is closed. On network file systems an exclusive one is for files that are open for writing.
[[nodiscard]] LockOutcome tryLock(const FileDescriptor &file, LockKind kind);

/// The same, exclusively, waiting for who holds it for a while.
[[nodiscard]] LockOutcome lockInTime(const FileDescriptor &file, std::chrono::milliseconds patience);

} // namespace quorvane
