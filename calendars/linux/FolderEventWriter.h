// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "calendars/EventWriter.h"
#include "calendars/linux/BoundedWorker.h"

#include <QString>

namespace quorvane {

/// New events go to a calendar of this program's own in a folder of calendars: a folder there, with a file
/// for each event, as `FolderStore` reads it. Both are made with the first event. It takes none where the
/// folder, or what it would have to be made in, cannot be listed and written.
class FolderEventWriter final : public EventWriter
{
public:
    /// The calendar's folder, and its title unless the folder says otherwise.
    static constexpr const char *calendarName = "Quorvane";

    /// `folder`: absolute path of the folder of calendars; it need not exist.
    explicit FolderEventWriter(const QString &folder,
                               BoundedWorker::Limit limit = BoundedWorker::defaultLimit);

    [[nodiscard]] QCoro::Task<Result<std::optional<DefaultCalendar>>> defaultCalendar() override;
    [[nodiscard]] QCoro::Task<Result<void>> add(NewEvent event) override;

private:
    QString m_calendar;
    BoundedWorker m_worker;
};

} // namespace quorvane
