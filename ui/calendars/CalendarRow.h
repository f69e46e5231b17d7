// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QString>

namespace quorvane {

/// One calendar that can be switched off.
struct CalendarRow
{
    QString id;
    QString name;
    /// The account, where the heading above does not say it.
    QString account;
    /// The source's own colour, "#rrggbb"; empty where it has none.
    QString color;
    /// Its place among all calendars, by which one without a colour is given one.
    int turn = 0;
    bool isRead = true;

    [[nodiscard]] const QString &key() const { return id; }
    bool operator==(const CalendarRow &) const = default;
};

} // namespace quorvane
