// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "calendars/linux/FolderStore.h"

#include "calendars/linux/FolderReader.h"

namespace quorvane {

FolderStore::FolderStore(const QStringList &folders, const QStringList &ownAddresses,
                         BoundedWorker::Limit limit, QObject *parent)
    : CalendarStore(parent)
    , m_changes(ChangeRelay::create())
    , m_reader(
          std::make_shared<FolderReader>(folders, ownAddresses, [changes = m_changes] { changes->report(); }))
    , m_worker("calendar-files", limit)
{
    connect(m_changes.get(), &ChangeRelay::changed, this, &CalendarStore::changed);
}

FolderStore::~FolderStore()
{
    m_worker.post([reader = std::move(m_reader)]() mutable { reader.reset(); });
}

void FolderStore::use(const QStringList &folders, const QStringList &ownAddresses)
{
    m_worker.post([reader = m_reader, changes = m_changes, folders, ownAddresses] {
        if (reader->use(folders, ownAddresses))
            changes->report();
    });
}

QString FolderStore::name() const
{
    return tr("Calendar folders");
}

QCoro::Task<Result<std::vector<CalendarOption>>> FolderStore::calendars()
{
    return m_worker.run<std::vector<CalendarOption>>(
        [reader = m_reader](const std::stop_token &) { return reader->calendars(); });
}

QCoro::Task<Result<EventReading>> FolderStore::events(double from, double to, QStringList calendarIds)
{
    return m_worker.run<EventReading>(
        [reader = m_reader, from, to, ids = std::move(calendarIds)](const std::stop_token &stop) {
            return reader->events(from, to, ids, stop);
        });
}

} // namespace quorvane
