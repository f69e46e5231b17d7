// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "alert/GlowImage.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <vector>

namespace quorvane {

namespace {

constexpr qreal innerRadius = 10;
constexpr int distanceShift = 6;

/// Three colour channels as 8.8 fixed point in one word, so that a dither value is added to all at once.
using Level = quint64;
constexpr Level everyChannel = 0x0000'0001'0001'0001;

Level levelOf(const QColor &inner, const QColor &outer, qreal share)
{
    const auto channel = [share](float from, float to) {
        const qreal value = (from + (to - from) * share) * 255.0;
        return static_cast<Level>(std::lround(value * 256.0));
    };
    return channel(inner.redF(), outer.redF()) << 32 | channel(inner.greenF(), outer.greenF()) << 16 |
           channel(inner.blueF(), outer.blueF());
}

/// The level by squared distance from the centre.
std::vector<Level> levelsUpTo(qint64 squaredDistance, qreal scale, const QColor &inner, const QColor &outer)
{
    std::vector<Level> levels(static_cast<std::size_t>(squaredDistance >> distanceShift) + 1);
    const Level outside = levelOf(inner, outer, 1);
    for (std::size_t index = 0; index < levels.size(); ++index) {
        const qreal distance = std::sqrt((static_cast<qreal>(index) + 0.5) * (1 << distanceShift)) / scale;
        const qreal share = (distance - innerRadius) / (glowRadius - innerRadius);
        levels[index] = share < 1 ? levelOf(inner, outer, std::max(0.0, share)) : outside;
    }
    return levels;
}

/// An 8 × 8 ordered dither (Bayer), as fractions of a level in 1/256.
Level ditherAt(int x, int y)
{
    int value = 0;
    for (int bit = 0; bit < 3; ++bit) {
        const int xBit = x >> bit & 1;
        const int yBit = y >> bit & 1;
        value |= ((xBit ^ yBit) << 1 | yBit) << (2 * (2 - bit));
    }
    return static_cast<Level>(value * 4 + 2) * everyChannel;
}

} // namespace

QImage glowImage(QSize size, qreal scale, const QColor &inner, const QColor &outer)
{
    QImage image(size, QImage::Format_RGB32);
    const qint64 left = -size.width() / 2;
    const qint64 top = -size.height() / 2;
    const std::vector<Level> levels = levelsUpTo(left * left + top * top, scale, inner, outer);
    for (int row = 0; row < size.height(); ++row) {
        std::array<Level, 8> dither{};
        for (int column = 0; column < 8; ++column)
            dither[static_cast<std::size_t>(column)] = ditherAt(column, row % 8);
        auto *pixels = reinterpret_cast<QRgb *>(image.scanLine(row));
        const qint64 y = top + row;
        for (int column = 0; column < size.width(); ++column) {
            const qint64 x = left + column;
            const auto index = static_cast<std::size_t>((x * x + y * y) >> distanceShift);
            const Level level = levels[index] + dither[static_cast<std::size_t>(column) % 8];
            pixels[column] = 0xFF00'0000U | static_cast<QRgb>(level >> 40 & 0xFF) << 16 |
                             static_cast<QRgb>(level >> 24 & 0xFF) << 8 |
                             static_cast<QRgb>(level >> 8 & 0xFF);
        }
    }
    return image;
}

} // namespace quorvane
