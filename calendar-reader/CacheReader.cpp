// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "calendar-reader/CacheReader.h"

#include "calendar-reader/CacheCalendars.h"
#include "calendar-reader/CacheEvents.h"
#include "calendar-reader/CacheLayout.h"
#include "calendars/records/EventMeetings.h"
#include "calendars/records/FantasticalReadError.h"

#include <QJsonDocument>

#include <thread>

namespace quorvane::CacheReader {
namespace {

constexpr int attempts = 8;
constexpr std::chrono::milliseconds pause{25};

/// Keeps the earliest of the meetings, which are in order.
void fit(FantasticalSnapshot &snapshot)
{
    constexpr qsizetype frame = 1'000;
    qsizetype left = FantasticalSnapshot::largest - frame - CacheCalendars::longestList;
    std::size_t kept = 0;
    for (; kept < snapshot.events.size(); ++kept) {
        left -= QJsonDocument(snapshot.events[kept].toJson()).toJson(QJsonDocument::Compact).size() + 1;
        if (left < 0)
            break;
    }
    snapshot.skipped += static_cast<qint64>(snapshot.events.size() - kept);
    snapshot.events.resize(kept);
}

Result<FantasticalSnapshot> readOpened(const CacheDatabase &database, const CacheRequest &request)
{
    if (const Result<void> known = CacheLayout::check(database); !known)
        return Failure(known.error());
    const Result<CacheCalendars> calendars = CacheCalendars::read(database);
    if (!calendars)
        return Failure(calendars.error());
    CacheEvents events(database, *calendars, request);
    const Result<std::vector<CalendarEvent>> found = events.read();
    if (!found)
        return Failure(found.error());
    return FantasticalSnapshot{
        .events = EventMeetings::meetings(*found, request.now),
        .calendars = calendars->options(),
        .skipped = calendars->skipped() + events.skipped(),
        .checkedAt = request.now,
    };
}

Result<FantasticalSnapshot> readAs(const CacheFile &file, const CacheRequest &request)
{
    const Result<CacheDatabase> database =
        CacheDatabase::open(request.path, file.journal(), request.deadline);
    if (!database)
        return Failure(database.error());
    Result<FantasticalSnapshot> snapshot = readOpened(*database, request);
    if (snapshot) {
        snapshot->cacheModifiedAt = file.modifiedAt();
        fit(*snapshot);
    }
    return snapshot;
}

/// Whether nothing but our own looking tells of a writer. A file whose time stamp has only just been set
/// could then change under the same one.
bool isOpenToWriters(const CacheFile &file)
{
    return file.journal() != CacheJournal::rollback;
}

} // namespace

Result<FantasticalSnapshot> read(const CacheRequest &request)
{
    for (int attempt = 0; attempt < attempts; ++attempt) {
        const Result<CacheFile> before = CacheFile::inspect(request.path);
        if (!before)
            return Failure(before.error());
        if (isOpenToWriters(*before) && before->isFresh()) {
            std::this_thread::sleep_for(pause);
            continue;
        }
        Result<FantasticalSnapshot> snapshot = readAs(*before, request);
        const Result<CacheFile> after = CacheFile::inspect(request.path);
        if (!after)
            return Failure(after.error());
        if ((!isOpenToWriters(*before) && !isOpenToWriters(*after)) || before->isUnchangedIn(*after))
            return snapshot;
        std::this_thread::sleep_for(pause);
    }
    return Failure(FantasticalReadError::databaseUnavailable);
}

} // namespace quorvane::CacheReader
