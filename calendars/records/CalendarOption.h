// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "core/Result.h"

#include <QJsonObject>
#include <QString>

#include <optional>

namespace quorvane {

/// One calendar that the user may switch off.
struct CalendarOption
{
    /// The calendar's identifier in its store; the value kept in the exclusion list.
    QString id;
    QString name;
    /// Title of the account that the calendar belongs to.
    QString account;
    /// The colour that the source shows it in, as "#rrggbb".
    std::optional<QString> color = std::nullopt;

    bool operator==(const CalendarOption &) const = default;

    [[nodiscard]] QJsonObject toJson() const;
    /// All keys but "color" are required; fails with `JsonError`.
    [[nodiscard]] static Result<CalendarOption> fromJson(const QJsonObject &object);
};

} // namespace quorvane
