// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "calendars/ical/FileEvents.h"
#include "calendars/linux/BoundedFile.h"
#include "calendars/linux/FolderScan.h"
#include "calendars/linux/FolderWatch.h"
#include "calendars/records/CalendarEvent.h"
#include "calendars/records/CalendarOption.h"
#include "core/Result.h"

#include <QSet>
#include <QStringList>

#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <stop_token>
#include <string>
#include <vector>

namespace quorvane {

/// Reads folders of .ics files; used and destroyed on one worker thread. What a file held is kept by the
/// file's identity, so that only changed files are read again.
///
/// Memory: per file its name and identity (about 200 bytes), and the occurrences between a day before and a
/// week after the span that was asked for; no components and no other events. Everything is read anew once a
/// week, when the span has moved out of what is kept, and when the user's time zone changes.
class FolderReader final
{
public:
    /// `changed` is called on the worker thread.
    FolderReader(QStringList roots, const QStringList &ownAddresses, std::function<void()> changed);

    /// Returns whether these are other ones than before.
    bool use(const QStringList &roots, const QStringList &ownAddresses);

    [[nodiscard]] Result<std::vector<CalendarOption>> calendars();
    [[nodiscard]] Result<EventReading> events(double from, double to, const QStringList &ids,
                                              const std::stop_token &stop);

private:
    struct KeptFile
    {
        std::optional<FileIdentity> identity;
        FileEvents content;
        bool isSeen = false;
    };
    struct KeptCalendar
    {
        QString name;
        std::map<std::string, KeptFile> files;
    };

    /// Fails when no root can be listed, unless those that could be are no longer wanted.
    Result<void> scan();
    Result<void> withoutRoots();
    [[nodiscard]] QString accountOf(const QString &root) const;
    void keepSpan(double from, double to);
    bool readCalendar(const FolderCalendar &calendar, EventReading &reading, double from, double to,
                      const std::stop_token &stop);
    void refresh(KeptFile &kept, int folder, const std::string &name, const FileContext &context);
    [[nodiscard]] bool isBelowUnlisted(const QString &id) const;

    QStringList m_roots;
    QStringList m_addressTexts;
    OwnAddresses m_addresses;
    std::function<void()> m_changed;
    /// Made on the first use, on the worker thread.
    std::unique_ptr<FolderWatch> m_watch;
    std::vector<FolderCalendar> m_calendars;
    std::vector<std::string> m_unlisted;
    /// Every root that could ever be listed, also if it is no longer wanted.
    QSet<QString> m_listedRoots;
    std::map<QString, KeptCalendar> m_kept;
    ZoneDefinitions m_zones;
    QByteArray m_zoneName;
    double m_keptFrom = 0;
    double m_keptTo = 0;
};

} // namespace quorvane
