// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "core/AlertRecord.h"

#include "core/StrictJson.h"

using namespace Qt::StringLiterals;

namespace quorvane {

QJsonObject AlertRecord::toJson() const
{
    QJsonObject object{
        {"acknowledged"_L1, acknowledged},
        {"snoozedUntil"_L1, snoozedUntil},
        {"shownAt"_L1, shownAt},
        {"phoneSent"_L1, phoneSent},
    };
    if (receipt)
        object.insert("receipt"_L1, *receipt);
    return object;
}

Result<AlertRecord> AlertRecord::fromJson(const QJsonObject &object)
{
    StrictJson json(object);
    AlertRecord record{
        .acknowledged = json.boolean("acknowledged"_L1),
        .snoozedUntil = json.number("snoozedUntil"_L1),
        .shownAt = json.number("shownAt"_L1),
        .phoneSent = json.boolean("phoneSent"_L1),
        .receipt = json.optionalString("receipt"_L1),
    };
    if (json.failure())
        return Failure(json.failure());
    return record;
}

} // namespace quorvane
