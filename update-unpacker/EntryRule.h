// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "update-unpacker/ArchiveEntry.h"

#include <QHash>

namespace quorvane {

/// What an update's archive may hold. It looks at one entry after the other, in the archive's order, and
/// never at a disk.
///
/// Everything lies in one folder. Names are printable ASCII, so that they are the same to everybody. A link
/// leads up first, if at all, and then down, and no entry lies behind a link; so no way through the unpacked
/// tree can leave it, whichever links it takes.
class EntryRule final
{
public:
    static constexpr const char *topFolder = "Quorvane";
    /// Entries, with the folders that only their paths tell of.
    static constexpr qsizetype mostEntries = 20'000;
    /// Bytes of all files' content together.
    static constexpr std::int64_t mostBytes = 1'000'000'000;
    /// Bytes of a name, and of a path or a link's target.
    static constexpr qsizetype longestName = 255;
    static constexpr qsizetype longestPath = 1'000;

    /// Whether the entry may be unpacked after those that were accepted. After the first refusal there is
    /// nothing more to ask.
    [[nodiscard]] bool accepts(const ArchiveEntry &entry);

    [[nodiscard]] bool isEmpty() const { return m_places.isEmpty(); }

private:
    enum class Place {
        /// A folder that only a path has told of so far; an entry of its own may follow.
        impliedFolder,
        folder,
        /// Nothing can lie below.
        leaf,
    };

    [[nodiscard]] bool takesBytes(const ArchiveEntry &entry);
    [[nodiscard]] bool takesFoldersOf(const QByteArray &path);
    [[nodiscard]] bool takesPlace(const ArchiveEntry &entry);

    QHash<QByteArray, Place> m_places;
    std::int64_t m_bytes = 0;
};

} // namespace quorvane
