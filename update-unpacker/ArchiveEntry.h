// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QByteArray>

#include <cstdint>

namespace quorvane {

/// What an archive says about one of the things in it.
struct ArchiveEntry
{
    enum class Kind {
        file,
        /// A file that its owner may run.
        program,
        folder,
        /// A symbolic link.
        link,
        /// Anything that an update has no use for: hard links, devices, files with holes, …
        other,
    };

    /// As in the archive, without the slash after a folder's name.
    QByteArray path;
    Kind kind = Kind::other;
    /// Bytes of a file's content.
    std::int64_t size = 0;
    /// Where a link leads.
    QByteArray target;
};

} // namespace quorvane
