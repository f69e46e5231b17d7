// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "alert/TakeoverPalette.h"

namespace quorvane::TakeoverPalette {

QColor tint(qint64 secondsLeft)
{
    if (secondsLeft > 60)
        return QColor(0xF6, 0xCD, 0xA2);
    return secondsLeft > 0 ? QColor(0xFF, 0xAF, 0x45) : QColor(0xFF, 0x8A, 0x5B);
}

QColor glow(const QColor &tint)
{
    constexpr float share = 0.26F;
    const QColor base(night);
    const auto mixed = [](float from, float to) { return from + (to - from) * share; };
    return QColor::fromRgbF(mixed(base.redF(), tint.redF()), mixed(base.greenF(), tint.greenF()),
                            mixed(base.blueF(), tint.blueF()));
}

} // namespace quorvane::TakeoverPalette
