// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QImage>
#include <QPointF>

namespace quorvane::HeroLight {

/// The light of the hero in an opaque image of `size` pixels at `ratio` pixels to the point: radial around
/// `source` (in points), from all out (`warmth` 0) to full (1). Dithered, because it goes through few levels
/// over many pixels.
[[nodiscard]] QImage image(QSize size, qreal ratio, QPointF source, qreal warmth);

} // namespace quorvane::HeroLight
