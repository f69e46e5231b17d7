// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "model/ManualMeetingText.h"

#include <QJsonArray>
#include <QJsonDocument>

namespace quorvane {

ManualMeetingText ManualMeetingText::of(const QString &text)
{
    ManualMeetingText found;
    if (text.trimmed().isEmpty())
        return found;
    QJsonParseError problem{};
    const QJsonDocument document = QJsonDocument::fromJson(text.toUtf8(), &problem);
    found.isWhole = problem.error == QJsonParseError::NoError && document.isArray();
    const QJsonArray values = document.array();
    for (const QJsonValue value : values) {
        Result<Meeting> meeting = Meeting::fromJson(value.toObject());
        if (meeting)
            found.meetings.push_back(*std::move(meeting));
        else
            found.isWhole = false;
    }
    return found;
}

QString ManualMeetingText::text(const std::vector<Meeting> &meetings)
{
    QJsonArray values;
    for (const Meeting &meeting : meetings)
        values.append(meeting.toJson());
    return QString::fromUtf8(QJsonDocument(values).toJson(QJsonDocument::Compact));
}

} // namespace quorvane
