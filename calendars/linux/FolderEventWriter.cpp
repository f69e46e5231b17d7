// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "calendars/linux/FolderEventWriter.h"

#include "calendars/ical/NewEventText.h"
#include "calendars/linux/FolderScan.h"
#include "posix/WholeFile.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <unistd.h>

namespace quorvane {

namespace {

bool isUsableFolder(const QString &path)
{
    return QFileInfo(path).isDir() && ::access(QFile::encodeName(path).constData(), R_OK | W_OK | X_OK) == 0;
}

/// The folder itself, or the one that it would be made in; a link that leads nowhere is in the way.
QString nearestExisting(QString path)
{
    const auto isThere = [](const QString &name) {
        const QFileInfo info(name);
        return info.exists() || info.isSymLink();
    };
    while (!isThere(path) && path != QDir::rootPath())
        path = QFileInfo(path).path();
    return path;
}

DefaultCalendar calendarAt(const QString &folder)
{
    return {.title = FolderScan::nameOf(QFile::encodeName(folder).toStdString()),
            .isWritable = isUsableFolder(nearestExisting(folder))};
}

Result<void> addFile(const QString &calendar, const NewEvent &event)
{
    const QString path = calendar + u'/' + event.uid + QStringLiteral(".ics");
    if (QDir().mkpath(calendar) && writeWholeFile(path, NewEventText::calendar(event)))
        return {};
    QDir().rmdir(calendar); // if it was made for this
    return Failure(std::make_error_code(std::errc::io_error));
}

} // namespace

FolderEventWriter::FolderEventWriter(const QString &folder, BoundedWorker::Limit limit)
    : m_calendar(folder + u'/' + QLatin1StringView(calendarName))
    , m_worker("calendar-new", limit)
{
}

QCoro::Task<Result<std::optional<DefaultCalendar>>> FolderEventWriter::defaultCalendar()
{
    return m_worker.run<std::optional<DefaultCalendar>>(
        [calendar = m_calendar](const std::stop_token &) { return calendarAt(calendar); });
}

QCoro::Task<Result<void>> FolderEventWriter::add(NewEvent event)
{
    return m_worker.run<void>([calendar = m_calendar, event = std::move(event)](const std::stop_token &) {
        return addFile(calendar, event);
    });
}

} // namespace quorvane
