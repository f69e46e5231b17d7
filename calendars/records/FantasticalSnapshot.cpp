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
    FantasticalSnapshot snapshot{
        .events = json.records<Meeting>("events"_L1),
        .calendars = json.records<CalendarOption>("calendars"_L1),
        .skipped = json.integer("skipped"_L1),
        .checkedAt = json.number("checkedAt"_L1),
        .cacheModifiedAt = json.number("cacheModifiedAt"_L1),
    };
    if (json.failure())
        return Failure(json.failure());
    return snapshot;
}

} // namespace quorvane
