// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "calendars/records/CalendarOption.h"

#include "calendars/records/CalendarColor.h"
#include "core/StrictJson.h"

using namespace Qt::StringLiterals;

namespace quorvane {

QJsonObject CalendarOption::toJson() const
{
    QJsonObject object{{"id"_L1, id}, {"name"_L1, name}, {"account"_L1, account}};
    if (color)
        object.insert("color"_L1, *color);
    return object;
}

Result<CalendarOption> CalendarOption::fromJson(const QJsonObject &object)
{
    StrictJson json(object);
    const std::optional<QString> color = json.optionalString("color"_L1);
    CalendarOption option{
        .id = json.string("id"_L1),
        .name = json.string("name"_L1),
        .account = json.string("account"_L1),
        .color = color ? CalendarColor::normalized(*color) : std::nullopt,
    };
    if (json.failure())
        return Failure(json.failure());
    return option;
}

} // namespace quorvane
