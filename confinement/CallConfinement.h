// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

namespace quorvane {

/// What a program may still do to files.
enum class FileCalls {
    read,
    /// It may also make folders, files and symbolic links and write files, but change or remove nothing.
    make,
};

/// From now on the system calls that such a program has no use for fail with EPERM: other programs, processes
/// and networks, changes to files, the kernel's more remote corners (seccomp). It is a list of what is denied
/// and not of what is allowed, on purpose: a call that a future C library makes must not cost a meeting.
/// A kernel without seccomp is no failure.
void denySystemCalls(FileCalls allowed);

} // namespace quorvane
