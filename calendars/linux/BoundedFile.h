// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "core/Result.h"

#include <cstdint>
#include <string>
#include <tuple>

namespace quorvane {

/// What tells one state of a file from another without reading it.
struct FileIdentity
{
    std::uint64_t device = 0;
    std::uint64_t inode = 0;
    std::int64_t size = 0;
    /// Last change of content and of the inode, in nanoseconds of Unix time.
    std::int64_t modified = 0;
    std::int64_t changed = 0;

    bool operator==(const FileIdentity &) const = default;

    /// The identity of `name` in the folder that is open as `folder` (AT_FDCWD: of the path `name`). Fails
    /// with the system's error, or with `std::errc::not_supported` when it is no regular file or link to one.
    [[nodiscard]] static Result<FileIdentity> of(int folder, const char *name);

    /// Whether the file was changed so shortly before `now` (nanoseconds) that another change could leave the
    /// same identity behind, file systems keeping times in steps of some milliseconds.
    [[nodiscard]] bool isFresh(std::int64_t now) const;
};

/// The largest file that is read, in bytes.
inline constexpr std::int64_t largestFile = 64 * 1024 * 1024;

/// The content of the regular file `name` in the folder that is open as `folder`. Never waits for a pipe's
/// writer. Fails with the system's error, `std::errc::not_supported` for what is no regular file, or
/// `std::errc::file_too_large` for more than `limit` bytes.
[[nodiscard]] Result<std::string> readBounded(int folder, const char *name, std::int64_t limit = largestFile);

} // namespace quorvane
