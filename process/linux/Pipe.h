// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "core/Result.h"
#include "posix/FileDescriptor.h"

namespace quorvane {

/// One of the three pipes between this process and a program that it starts. Both ends close on exec and lie
/// above standard error: in a process whose standard streams are closed, what somebody prints must not get
/// in.
struct Pipe
{
    /// Does not block.
    FileDescriptor ours;
    FileDescriptor theirs;

    /// For what the program reads.
    [[nodiscard]] static Result<Pipe> toProgram();
    /// For what the program writes.
    [[nodiscard]] static Result<Pipe> fromProgram();
};

} // namespace quorvane
