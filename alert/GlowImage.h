// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QColor>
#include <QImage>

namespace quorvane {

/// Paints the glow: a radial gradient from `inner` (up to 10 × `scale` pixels from the centre) to `outer`
/// (from 720 × `scale`), centred in an opaque image of `size`. The gradient spans few levels over many
/// pixels, so it is dithered with a fixed pattern: no bands, and no flicker while it breathes.
[[nodiscard]] QImage glowImage(QSize size, qreal scale, const QColor &inner, const QColor &outer);

/// Radius of the glow at scale 1.
inline constexpr qreal glowRadius = 720;

} // namespace quorvane
