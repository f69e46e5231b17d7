// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "core/Meeting.h"

#include "core/StrictJson.h"

#include <QCryptographicHash>

#include <cmath>

using namespace Qt::StringLiterals;

namespace quorvane {

const QString Meeting::systemSource = u"mac"_s;
const QString Meeting::manualSource = u"manual"_s;

QDateTime Meeting::startDate() const
{
    return QDateTime::fromMSecsSinceEpoch(qRound64(start * 1000));
}

bool Meeting::eligible(double now) const
{
    return !cancelled && !allDay && start < end && now - graceAfterStart <= start;
}

QString Meeting::identity(const QString &uid, double start)
{
    // 2^63 itself is a double, so the upper bound is exclusive and the lower one is not.
    constexpr double limit = 9'223'372'036'854'775'808.0;
    if (!std::isfinite(start) || start < -limit || start >= limit)
        qFatal("A meeting's start is no point in time");
    const QString text = uid + u'|' + QString::number(static_cast<qint64>(start));
    const QByteArray digest = QCryptographicHash::hash(text.toUtf8(), QCryptographicHash::Sha256);
    return QString::fromLatin1(digest.toHex());
}

bool Meeting::isVideoMeeting() const
{
    return joinURL && findJoinURL(*joinURL);
}

QJsonObject Meeting::toJson() const
{
    QJsonObject object{
        {"id"_L1, id},
        {"title"_L1, title},
        {"start"_L1, start},
        {"end"_L1, end},
        {"calendar"_L1, calendar},
        {"source"_L1, source},
        {"cancelled"_L1, cancelled},
        {"allDay"_L1, allDay},
    };
    if (joinURL)
        object.insert("joinURL"_L1, *joinURL);
    return object;
}

Result<Meeting> Meeting::fromJson(const QJsonObject &object)
{
    StrictJson json(object);
    Meeting meeting{
        .id = json.string("id"_L1),
        .title = json.string("title"_L1),
        .start = json.number("start"_L1),
        .end = json.number("end"_L1),
        .calendar = json.string("calendar"_L1),
        .joinURL = json.optionalString("joinURL"_L1),
        .source = json.string("source"_L1),
        .cancelled = json.boolean("cancelled"_L1),
        .allDay = json.boolean("allDay"_L1),
    };
    if (json.failure())
        return Failure(json.failure());
    return meeting;
}

} // namespace quorvane
