// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "calendars/linux/FolderReader.h"

#include "calendars/CalendarError.h"
#include "calendars/ical/EventCollection.h"
#include "calendars/ical/TimeZoneResolver.h"

#include <QDir>
#include <QFileInfo>

#include <fcntl.h>

#include <algorithm>
#include <chrono>

namespace quorvane {
namespace {

constexpr double day = 24 * 60 * 60;

std::int64_t nowInNanoseconds()
{
    return std::chrono::nanoseconds(std::chrono::system_clock::now().time_since_epoch()).count();
}

bool overlaps(const CalendarEvent &event, double from, double to)
{
    return event.start < to && (event.end > from || (event.start == event.end && event.end == from));
}

} // namespace

FolderReader::FolderReader(QStringList roots, const QStringList &ownAddresses, std::function<void()> changed)
    : m_roots(std::move(roots))
    , m_addressTexts(ownAddresses)
    , m_addresses(ownAddresses)
    , m_changed(std::move(changed))
{
}

bool FolderReader::use(const QStringList &roots, const QStringList &ownAddresses)
{
    if (roots == m_roots && ownAddresses == m_addressTexts)
        return false;
    if (ownAddresses != m_addressTexts)
        m_kept.clear(); // who declined is kept with the events
    m_roots = roots;
    m_addressTexts = ownAddresses;
    m_addresses = OwnAddresses(ownAddresses);
    return true;
}

// Folders of one name are told apart by the folder above them.
QString FolderReader::accountOf(const QString &root) const
{
    const QFileInfo info(root);
    const QString name = info.fileName();
    if (root == m_roots.constFirst() || name.isEmpty())
        return FolderScan::defaultAccount;
    const auto isNamesake = [&](const QString &other) {
        return other != root && QFileInfo(other).fileName() == name;
    };
    return std::any_of(m_roots.begin(), m_roots.end(), isNamesake)
               ? info.dir().dirName() + QStringLiteral("/") + name
               : name;
}

Result<void> FolderReader::scan()
{
    if (!m_watch)
        m_watch = std::make_unique<FolderWatch>(m_changed);
    m_watch->beginRound();
    FolderScan scan(*m_watch);
    for (const QString &root : std::as_const(m_roots)) {
        if (scan.addRoot(root, accountOf(root)))
            m_listedRoots.insert(root);
    }
    m_watch->endRound();
    if (!scan.anyRootListed())
        return withoutRoots();

    m_unlisted = scan.unlisted();
    std::vector<FolderCalendar> found = scan.calendars();
    for (FolderCalendar &earlier : m_calendars) {
        if (isBelowUnlisted(earlier.id))
            found.push_back(std::move(earlier));
    }
    m_calendars = std::move(found);
    std::sort(m_calendars.begin(), m_calendars.end(),
              [](const FolderCalendar &a, const FolderCalendar &b) { return a.id < b.id; });
    std::erase_if(m_kept, [this](const auto &kept) {
        return std::none_of(m_calendars.begin(), m_calendars.end(),
                            [&kept](const FolderCalendar &calendar) { return calendar.id == kept.first; });
    });
    return {};
}

// What was held of a folder that does not answer still counts, but not that of one that is no longer wanted.
Result<void> FolderReader::withoutRoots()
{
    const bool anyMissed = std::any_of(m_roots.begin(), m_roots.end(),
                                       [this](const QString &root) { return m_listedRoots.contains(root); });
    if (anyMissed || m_listedRoots.isEmpty())
        return Failure(make_error_code(CalendarError::unavailable));
    m_calendars.clear();
    m_kept.clear();
    m_unlisted.clear();
    return {};
}

bool FolderReader::isBelowUnlisted(const QString &id) const
{
    return std::any_of(m_unlisted.begin(), m_unlisted.end(), [&id](const std::string &folder) {
        const QString prefix = QStringLiteral("folder:") + QString::fromLocal8Bit(folder);
        return id == prefix || id.startsWith(prefix + u'/');
    });
}

Result<std::vector<CalendarOption>> FolderReader::calendars()
{
    if (const Result<void> scanned = scan(); !scanned)
        return Failure(scanned.error());
    std::vector<CalendarOption> options;
    options.reserve(m_calendars.size());
    for (const FolderCalendar &calendar : m_calendars)
        options.push_back({calendar.id, calendar.name, calendar.account, calendar.color});
    return options;
}

Result<EventReading> FolderReader::events(double from, double to, const QStringList &ids,
                                          const std::stop_token &stop)
{
    if (const Result<void> scanned = scan(); !scanned)
        return Failure(scanned.error());
    keepSpan(from, to);
    EventReading reading;
    bool anyRead = false;
    for (const FolderCalendar &calendar : m_calendars) {
        if (!ids.contains(calendar.id))
            continue;
        if (!isBelowUnlisted(calendar.id) && readCalendar(calendar, reading, from, to, stop))
            anyRead = true;
        else
            reading.unreadableCalendars.append(calendar.id);
    }
    if (!anyRead && stop.stop_requested())
        return Failure(make_error_code(CalendarError::timedOut));
    return reading;
}

void FolderReader::keepSpan(double from, double to)
{
    m_zones.trim();
    const QByteArray zoneName = TimeZoneResolver::defaultZoneName();
    if (from >= m_keptFrom && to <= m_keptTo && zoneName == m_zoneName)
        return;
    m_kept.clear();
    m_zoneName = zoneName;
    m_keptFrom = from - day;
    m_keptTo = to + 7 * day;
}

/// Returns whether anything in the calendar could be read.
bool FolderReader::readCalendar(const FolderCalendar &calendar, EventReading &reading, double from, double to,
                                const std::stop_token &stop)
{
    const FileDescriptor folder(::open(calendar.folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    if (!folder.isValid())
        return false;
    KeptCalendar &kept = m_kept[calendar.id];
    if (kept.name != calendar.name)
        kept = {calendar.name, {}};
    const FileContext context{calendar.id,
                              calendar.name,
                              m_addresses,
                              m_zoneName,
                              static_cast<time_t>(m_keptFrom),
                              static_cast<time_t>(m_keptTo)};
    std::vector<CalendarEvent> events;
    bool anyReadable = calendar.files.empty();
    for (const std::string &name : calendar.files) {
        if (stop.stop_requested())
            return false;
        KeptFile &file = kept.files[name];
        file.isSeen = true;
        refresh(file, folder.value(), name, context);
        anyReadable = anyReadable || file.content.isReadable;
        std::copy_if(file.content.events.begin(), file.content.events.end(), std::back_inserter(events),
                     [=](const CalendarEvent &event) { return overlaps(event, from, to); });
    }
    for (auto file = kept.files.begin(); file != kept.files.end();)
        file = std::exchange(file->second.isSeen, false) ? std::next(file) : kept.files.erase(file);
    if (!anyReadable)
        return false;
    EventCollection::sort(events);
    reading.events.insert(reading.events.end(), std::make_move_iterator(events.begin()),
                          std::make_move_iterator(events.end()));
    return true;
}

/// Brings what is kept of a file up to date. A file that cannot be read for the moment keeps its events.
void FolderReader::refresh(KeptFile &kept, int folder, const std::string &name, const FileContext &context)
{
    const Result<FileIdentity> identity = FileIdentity::of(folder, name.c_str());
    if (!identity || (kept.identity && *kept.identity == *identity))
        return;
    const std::int64_t now = nowInNanoseconds();
    const Result<std::string> content = readBounded(folder, name.c_str());
    if (!content && content.error() != std::errc::file_too_large)
        return;
    kept.content = content ? FileEvents::read(*content, name, context, m_zones) : FileEvents{};
    kept.identity.reset();
    if (!identity->isFresh(now))
        kept.identity = *identity;
}

} // namespace quorvane
