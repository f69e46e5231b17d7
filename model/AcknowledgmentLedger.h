// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "core/AlertRecord.h"
#include "core/Result.h"

#include <QString>

namespace quorvane {

/// The file that keeps alert records across restarts: one JSON object, meeting id to record, readable by its
/// owner only. Writing replaces the file in one step, so that whoever is killed at any moment leaves the old
/// or the new one. A file that cannot be understood is set aside under another name and never overwritten.
class AcknowledgmentLedger
{
public:
    /// Records beyond this number are pruned when saving.
    static constexpr qsizetype pruneAbove = 2000;
    /// Pruning drops records shown longer ago than this, in seconds: 30 days.
    static constexpr double keepShownFor = 2'592'000;

    /// `file` is the path of "acknowledgments.json".
    explicit AcknowledgmentLedger(QString file);

    /// Creates the file's folder and reads the records. A missing file is an empty table. Fails with the
    /// reading's error or `JsonError` when there is a file that cannot be used; it is then set aside, or,
    /// where even that is impossible, left alone for good: `save` fails until the next start.
    [[nodiscard]] Result<AlertRecords> load();

    /// Writes all records. Fails with the system's error; the file is then as it was before.
    [[nodiscard]] std::error_code save(const AlertRecords &records);

    /// What is left of `records` at `now` (Unix time, seconds): all of up to `pruneAbove`; of more, those
    /// never shown or shown within `keepShownFor`.
    [[nodiscard]] static AlertRecords pruned(AlertRecords records, double now);

private:
    [[nodiscard]] Result<AlertRecords> decoded(const QByteArray &bytes) const;
    void setAside();

    QString m_file;
    bool m_writable = true;
};

} // namespace quorvane
