// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "core/Result.h"

#include <QByteArray>

#include <array>
#include <compare>
#include <cstdint>

namespace quorvane {

/// How the cache has to be opened so that nothing is written and no commit is missed.
enum class CacheJournal {
    /// A rollback journal: SQLite's file locks hold writers off while we read.
    rollback,
    /// Write-ahead logging, and everything is in the main file: read as a file that does not change.
    logEmpty,
    /// Write-ahead logging with content in the log, which is indexed in our own memory and read without
    /// locks.
    logFilled,
};

/// The cache on disk at one moment.
class CacheFile final
{
public:
    /// Looks at the file `path` (absolute, no symbolic link) and at the log beside it. Fails with
    /// `FantasticalReadError::accessDenied`, `databaseUnavailable`, or `unsupportedFormat` when it is no
    /// database at all.
    [[nodiscard]] static Result<CacheFile> inspect(const QByteArray &path);

    /// The path that `path` stands for, symbolic links followed; fails as `inspect` does.
    [[nodiscard]] static Result<QByteArray> resolve(const QByteArray &path);

    [[nodiscard]] CacheJournal journal() const { return m_journal; }

    /// Unix time in seconds of the last write to the file or to its log; a writer that holds the database
    /// open touches only the log.
    [[nodiscard]] double modifiedAt() const;

    /// Whether what has been read between this look and the `later` one is of one piece: the main file was
    /// not written to, nor the log begun anew. What was appended to the log in between does no harm.
    [[nodiscard]] bool isUnchangedIn(const CacheFile &later) const;

    /// Whether the last write is so recent that another one may not move the time stamp.
    [[nodiscard]] bool isFresh() const;

private:
    struct Stamp
    {
        std::uint64_t device = 0;
        std::uint64_t inode = 0;
        std::int64_t size = 0;
        /// Unix time, nanoseconds: of the content and of the inode.
        std::int64_t modified = 0;
        std::int64_t changed = 0;

        bool operator==(const Stamp &) const = default;
    };

    [[nodiscard]] static Result<void> readHeader(const QByteArray &path, CacheFile &file);
    [[nodiscard]] static Result<void> readLog(const QByteArray &path, CacheFile &file);
    [[nodiscard]] static Stamp stampOf(int descriptor);

    CacheJournal m_journal = CacheJournal::rollback;
    Stamp m_main;
    Stamp m_log;
    /// Begins with salts that change whenever the log is begun anew.
    std::array<char, 32> m_logHeader{};
};

} // namespace quorvane
