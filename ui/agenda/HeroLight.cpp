// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "ui/agenda/HeroLight.h"

#include <QColor>

#include <algorithm>
#include <array>
#include <cmath>
#include <vector>

namespace quorvane::HeroLight {

namespace {

struct Stop
{
    qreal at;
    QRgb lit;
    QRgb out;
};
constexpr std::array<Stop, 4> stops{{
    {0, 0x624520, 0x332D26},
    {0.28, 0x47331B, 0x2B2620},
    {0.62, 0x2A2017, 0x231E19},
    {1, 0x1D1812, 0x1B1713},
}};

/// Three channels, each with 8 bits below the point.
using Level = std::array<int, 3>;
constexpr int levelCount = 1024;

qreal blend(qreal from, qreal to, qreal share)
{
    return from + (to - from) * share;
}

Level levelAt(qreal place, qreal warmth)
{
    const auto upper = std::find_if(stops.begin() + 1, stops.end() - 1,
                                    [place](const Stop &stop) { return place < stop.at; });
    const Stop &from = *std::prev(upper);
    const qreal share = (place - from.at) / (upper->at - from.at);
    Level level{};
    constexpr std::array<int (*)(QRgb), 3> channels{qRed, qGreen, qBlue};
    for (std::size_t index = 0; index < channels.size(); ++index) {
        const auto channel = channels[index];
        const qreal lit = blend(channel(from.lit), channel(upper->lit), share);
        const qreal out = blend(channel(from.out), channel(upper->out), share);
        level[index] = static_cast<int>(std::lround(256 * blend(out, lit, warmth)));
    }
    return level;
}

/// An 8 × 8 ordered dither (Bayer), as fractions of a level in 1/256.
int ditherAt(int x, int y)
{
    int value = 0;
    for (int bit = 0; bit < 3; ++bit) {
        const int xBit = x >> bit & 1;
        const int yBit = y >> bit & 1;
        value |= ((xBit ^ yBit) << 1 | yBit) << (2 * (2 - bit));
    }
    return value * 4 + 2;
}

} // namespace

QImage image(QSize size, qreal ratio, QPointF source, qreal warmth)
{
    std::vector<Level> levels;
    for (int index = 0; index <= levelCount; ++index)
        levels.push_back(levelAt(static_cast<qreal>(index) / levelCount, warmth));

    QImage picture(size, QImage::Format_RGB32);
    picture.setDevicePixelRatio(ratio);
    const QPointF centre = source * ratio;
    const qreal radius = std::max(560 * ratio, 0.72 * size.width());
    for (int row = 0; row < size.height(); ++row) {
        auto *pixels = reinterpret_cast<QRgb *>(picture.scanLine(row));
        const qreal y = row + 0.5 - centre.y();
        for (int column = 0; column < size.width(); ++column) {
            const qreal x = column + 0.5 - centre.x();
            const qreal place = std::min(1.0, std::sqrt(x * x + y * y) / radius);
            const Level &level = levels[static_cast<std::size_t>(place * levelCount)];
            const int dither = ditherAt(column, row);
            pixels[column] =
                qRgb((level[0] + dither) >> 8, (level[1] + dither) >> 8, (level[2] + dither) >> 8);
        }
    }
    return picture;
}

} // namespace quorvane::HeroLight
