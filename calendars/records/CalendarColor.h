// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QString>

#include <optional>

/// The colours that sources give their calendars.
namespace quorvane::CalendarColor {

/// A colour as "#rrggbb", of a text in which sources write it: "#" and 3, 6, 8 (with a last opacity, which is
/// left out) or 12 hexadecimal digits, with blanks around it. Absent for anything else.
[[nodiscard]] std::optional<QString> normalized(const QString &text);

} // namespace quorvane::CalendarColor
