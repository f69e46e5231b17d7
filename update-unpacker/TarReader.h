// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "core/Result.h"
#include "update-unpacker/ArchiveEntry.h"
#include "update-unpacker/CompressedStream.h"

#include <memory>
#include <optional>
#include <span>

struct archive;

namespace quorvane {

/// The entries of a tar archive, one after the other. Reading fails with `UnpackError::archiveInvalid` when
/// the stream fails or is none, ends too early, or holds anything behind the archive's end but zeros.
class TarReader final
{
public:
    /// `stream` must outlive the reader.
    explicit TarReader(CompressedStream &stream);

    /// The next entry; nothing at the end. What is left of the last one's content is passed over.
    [[nodiscard]] Result<std::optional<ArchiveEntry>> next();

    /// The next bytes of the entry's content, which are there until the next call; none at its end. They may
    /// be fewer or more than the entry has announced.
    [[nodiscard]] Result<std::span<const char>> read();

private:
    [[nodiscard]] bool open();
    [[nodiscard]] bool endsHere();

    struct Free
    {
        void operator()(archive *reader) const;
    };

    CompressedStream &m_stream;
    std::unique_ptr<archive, Free> m_reader;
    bool m_isOpen = false;
};

} // namespace quorvane
