// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QColor>

/// The takeover's colours. Urgency warms one colour; everything else is fixed.
namespace quorvane::TakeoverPalette {

/// The near-black behind everything, also of the window itself.
inline constexpr QRgb night = qRgb(18, 16, 13);

/// Sand while more than a minute is left, amber in the last minute, ember once started.
[[nodiscard]] QColor tint(qint64 secondsLeft);

/// The glow's colour at its centre: the tint mixed into night. Opaque, because a translucent tint over night
/// would be rounded twice and show bands.
[[nodiscard]] QColor glow(const QColor &tint);

} // namespace quorvane::TakeoverPalette
