// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "calendars/CalendarStore.h"
#include "calendars/linux/BoundedWorker.h"
#include "calendars/linux/ChangeRelay.h"

#include <memory>

namespace quorvane {

class FolderReader;

/// Calendars kept as .ics files in folders, one file or one folder per calendar (`FolderScan` tells which).
/// Files of more than 64 MB and lines of more than 1 MB are refused; what is broken costs only itself. A
/// calendar is named unreadable when nothing in it can be read or time runs out; a store none of whose
/// folders can be listed fails with `CalendarError::unavailable`, one whose file system hangs with
/// `CalendarError::timedOut`.
///
/// Folders are watched from the first call on, the coming of those not there yet too.
class FolderStore final : public CalendarStore
{
    Q_OBJECT

public:
    /// `folders`: absolute paths, the first one the program's own. `ownAddresses`: the user's mail addresses,
    /// by which declined meetings are told; a calendar that names its owner adds that one for itself.
    FolderStore(const QStringList &folders, const QStringList &ownAddresses,
                BoundedWorker::Limit limit = BoundedWorker::defaultLimit, QObject *parent = nullptr);
    ~FolderStore() override;

    /// Has these read from the next call on, and says that they have changed.
    void use(const QStringList &folders, const QStringList &ownAddresses);

    [[nodiscard]] QString name() const override;
    [[nodiscard]] QCoro::Task<Result<std::vector<CalendarOption>>> calendars() override;
    [[nodiscard]] QCoro::Task<Result<EventReading>> events(double from, double to,
                                                           QStringList calendarIds) override;

private:
    std::shared_ptr<ChangeRelay> m_changes;
    std::shared_ptr<FolderReader> m_reader;
    BoundedWorker m_worker;
};

} // namespace quorvane
