// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "posix/FileDescriptor.h"

#include <chrono>

namespace quorvane {

enum class LockKind { shared, exclusive };

/// Takes the lock (flock(2)) of an open file, without waiting. It is held until every copy of the descriptor
/// is closed. False when another holds it, and where there are no locks.
[[nodiscard]] bool tryLock(const FileDescriptor &file, LockKind kind);

/// The same, exclusively, waiting for who holds it for a while.
[[nodiscard]] bool lockInTime(const FileDescriptor &file, std::chrono::milliseconds patience);

} // namespace quorvane
