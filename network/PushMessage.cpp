// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "network/PushMessage.h"

#include "core/Characters.h"
#include "network/NetworkError.h"

#include <algorithm>
#include <cmath>

using namespace Qt::StringLiterals;

namespace quorvane::PushMessage {

namespace {

constexpr qsizetype longestTitle = 800;
/// Seconds: how long the phone goes on after the start, and at most.
constexpr qint64 graceAfterStart = 120;
constexpr qint64 longestAlarm = 600;

Result<qint64> secondsUntil(double start, double now)
{
    constexpr double limit = 9'223'372'036'854'775'808.0; // 2^63
    const double difference = start - now;
    if (!std::isfinite(difference) || difference < -limit || difference >= limit)
        return Failure(NetworkError::configuration);
    return std::max(static_cast<qint64>(difference), qint64{0});
}

QString text(const QString &title)
{
    const QString cut = Characters::fitting(Characters::first(title, longestTitle), longestMessage);
    return cut.trimmed().isEmpty() ? u"Meeting"_s : cut; // the service refuses a blank message
}

FormFields alertFields(const Meeting &meeting, qint64 seconds)
{
    const qint64 alarm = std::min(seconds, longestAlarm - graceAfterStart) + graceAfterStart;
    return {{u"title"_s, u"Meeting in %1 seconds"_s.arg(seconds)},
            {u"message"_s, text(meeting.title)},
            {u"priority"_s, u"2"_s},
            {u"tags"_s, meeting.id},
            {u"retry"_s, u"30"_s},
            {u"expire"_s, QString::number(alarm)}};
}

FormFields testFields()
{
    return {{u"title"_s, u"Quorvane test"_s},
            {u"message"_s, u"Your own meeting reminders are connected."_s},
            {u"priority"_s, u"1"_s}};
}

// A link that the service finds too long would cost the whole alert.
FormFields linkFields(const Meeting &meeting)
{
    const std::optional<QUrl> url = Meeting::safeJoinURL(meeting.joinURL);
    if (!url || !meeting.joinURL->startsWith("https:"_L1))
        return {};
    const QString link = QString::fromLatin1(url->toEncoded());
    if (link.size() > longestLink)
        return {};
    return {{u"url"_s, link}, {u"url_title"_s, u"Join meeting"_s}};
}

} // namespace

Result<FormFields> fields(const Meeting &meeting, PushKind kind, double now)
{
    const Result<qint64> seconds = secondsUntil(meeting.start, now);
    if (!seconds)
        return Failure(seconds.error());
    FormFields fields = kind == PushKind::alert ? alertFields(meeting, *seconds) : testFields();
    fields.emplace_back(u"sound"_s, u"persistent"_s);
    std::ranges::move(linkFields(meeting), std::back_inserter(fields));
    return fields;
}

} // namespace quorvane::PushMessage
