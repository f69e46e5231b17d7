// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "ui/sheet/ClockStyle.h"

#include <optional>

namespace quorvane {

/// A time being typed into the field of the hour or of the minute. Either takes a whole time as well, such as
/// "9:30", "9.30 pm" or "21h15"; that of the hour also "930".
struct TypedTime
{
    QTime time;
    /// Nothing that may follow would belong to this field.
    bool isFinished = false;

    bool operator==(const TypedTime &) const = default;

    /// Nothing when the text is no time. What the text does not say stays as in `current`; over 12 hours that
    /// is the half of the day too.
    [[nodiscard]] static std::optional<TypedTime> inHour(const QString &text, QTime current,
                                                         const ClockStyle &style);
    [[nodiscard]] static std::optional<TypedTime> inMinute(const QString &text, QTime current,
                                                           const ClockStyle &style);
};

} // namespace quorvane
