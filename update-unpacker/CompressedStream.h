// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "core/Result.h"
#include "posix/FileDescriptor.h"

#include <cstdint>
#include <memory>
#include <span>

struct archive;

namespace quorvane {

/// What a file that is compressed once, by xz, gzip or zstd, holds.
class CompressedStream final
{
public:
    /// Bytes that can be read at all: what the files of an update may hold, and room for what stands between
    /// them.
    static constexpr std::int64_t mostBytes = 1'100'000'000;

    /// `file` is read from where it stands. Reading fails with `UnpackError::archiveInvalid` when it is not
    /// compressed in one of these ways, is cut off, has something behind its end, or holds too much.
    explicit CompressedStream(FileDescriptor file);

    /// The next bytes, which are there until the next call; none at the end.
    [[nodiscard]] Result<std::span<const char>> read();

    /// Bytes read so far, and how many of them there are up to the last that is not zero.
    [[nodiscard]] std::int64_t size() const { return m_size; }
    [[nodiscard]] std::int64_t sizeWithoutZeros() const { return m_sizeWithoutZeros; }

private:
    [[nodiscard]] bool open();
    [[nodiscard]] bool isReadWhole() const;
    void count(std::span<const char> bytes);

    struct Free
    {
        void operator()(archive *reader) const;
    };

    FileDescriptor m_file;
    std::unique_ptr<archive, Free> m_reader;
    bool m_isOpen = false;
    std::int64_t m_size = 0;
    std::int64_t m_sizeWithoutZeros = 0;
};

} // namespace quorvane
