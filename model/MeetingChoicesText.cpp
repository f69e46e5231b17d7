// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "model/MeetingChoicesText.h"

#include "core/StrictJson.h"

#include <QJsonDocument>

namespace quorvane::MeetingChoicesText {

QString text(const MeetingChoices &choices)
{
    QJsonObject object;
    for (auto choice = choices.begin(); choice != choices.end(); ++choice)
        object.insert(choice.key(), choice.value());
    return QString::fromUtf8(QJsonDocument(object).toJson(QJsonDocument::Compact));
}

std::optional<MeetingChoices> choices(const QString &text)
{
    MeetingChoices found;
    if (text.isEmpty())
        return found;
    const auto object = jsonObject(text.toUtf8());
    if (!object)
        return std::nullopt;
    for (auto entry = object->begin(); entry != object->end(); ++entry) {
        if (!entry->isBool())
            return std::nullopt;
        found.insert(entry.key(), entry->toBool());
    }
    return found;
}

} // namespace quorvane::MeetingChoicesText
