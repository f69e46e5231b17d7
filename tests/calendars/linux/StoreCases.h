// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QByteArray>
#include <QString>
#include <QStringList>

#include <vector>

namespace quorvane {

/// One calendar and what every store has to make of it, in the span from 2026-11-21 to 2026-12-05 for a user
/// in Berlin whose address is `ownAddress`.
struct StoreCase
{
    const char *name;
    /// The components of the calendar, lines ended by "\n".
    QByteArray components;
    /// "MM-dd hh:mm/MM-dd hh:mm title" in UTC, with "all-day", "cancelled", "tentative", "declined" behind.
    QStringList expected;

    static const QString ownAddress;
    /// 2026-11-21T00:00Z and 2026-12-05T00:00Z as Unix time.
    static constexpr double from = 1'795'219'200;
    static constexpr double to = from + 14 * 86'400;

    [[nodiscard]] QByteArray calendar() const;
    [[nodiscard]] static std::vector<StoreCase> all();
};

} // namespace quorvane
