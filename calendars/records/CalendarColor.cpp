// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "calendars/records/CalendarColor.h"

#include <algorithm>

namespace quorvane::CalendarColor {

namespace {

/// Every digit, or of wide channels those that weigh most.
struct Layout
{
    qsizetype digits;
    qsizetype perChannel;
};

constexpr Layout layouts[] = {{3, 1}, {6, 2}, {8, 2}, {12, 4}};

bool isHexadecimal(QChar digit)
{
    const QChar lower = digit.toLower();
    return (digit >= u'0' && digit <= u'9') || (lower >= u'a' && lower <= u'f');
}

} // namespace

std::optional<QString> normalized(const QString &text)
{
    const QString color = text.trimmed().toLower();
    const QString digits = color.mid(1);
    const auto *layout = std::ranges::find(layouts, digits.size(), &Layout::digits);
    if (!color.startsWith(u'#') || layout == std::end(layouts) || !std::ranges::all_of(digits, isHexadecimal))
        return std::nullopt;
    QString result(u'#');
    for (qsizetype channel = 0; channel < 3; ++channel) {
        const QString own = digits.mid(channel * layout->perChannel, layout->perChannel);
        result += own.size() == 1 ? own + own : own.left(2);
    }
    return result;
}

} // namespace quorvane::CalendarColor
