// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "calendars/records/FantasticalSnapshot.h"

#include "core/StrictJson.h"

#include <QJsonArray>
#include <QJsonDocument>

using namespace Qt::StringLiterals;

namespace quorvane {

namespace {

template<class Record>
QJsonArray arrayOf(const std::vector<Record> &records)
{
    QJsonArray array;
    for (const Record &record : records)
        array.append(record.toJson());
    return array;
}

template<class Record>
Result<std::vector<Record>> recordsIn(const QJsonArray &array)
{
    std::vector<Record> records;
    records.reserve(static_cast<std::size_t>(array.size()));
    for (const QJsonValue value : array) {
        if (!value.isObject())
            return Failure(JsonError::wrongType);
        Result<Record> record = Record::fromJson(value.toObject());
        if (!record)
            return Failure(record.error());
        records.push_back(*std::move(record));
    }
    return records;
}

} // namespace

QByteArray FantasticalSnapshot::toJson() const
{
    const QJsonObject object{
        {"events"_L1, arrayOf(events)}, {"calendars"_L1, arrayOf(calendars)},    {"skipped"_L1, skipped},
        {"checkedAt"_L1, checkedAt},    {"cacheModifiedAt"_L1, cacheModifiedAt},
    };
    return QJsonDocument(object).toJson(QJsonDocument::Compact);
}

Result<FantasticalSnapshot> FantasticalSnapshot::fromJson(const QByteArray &bytes)
{
    const Result<QJsonObject> object = jsonObject(bytes);
    if (!object)
        return Failure(object.error());
    StrictJson json(*object);
    const QJsonArray events = json.array("events"_L1);
    const QJsonArray calendars = json.array("calendars"_L1);
    FantasticalSnapshot snapshot{
        .skipped = json.integer("skipped"_L1),
        .checkedAt = json.number("checkedAt"_L1),
        .cacheModifiedAt = json.number("cacheModifiedAt"_L1),
    };
    if (json.failure())
        return Failure(json.failure());
    Result<std::vector<Meeting>> meetings = recordsIn<Meeting>(events);
    if (!meetings)
        return Failure(meetings.error());
    Result<std::vector<CalendarOption>> options = recordsIn<CalendarOption>(calendars);
    if (!options)
        return Failure(options.error());
    snapshot.events = *std::move(meetings);
    snapshot.calendars = *std::move(options);
    return snapshot;
}

} // namespace quorvane
