// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "alert/DialFace.h"

#include "alert/TakeoverPalette.h"

#include <QPainter>

#include <algorithm>
#include <cmath>

namespace quorvane {

namespace {

constexpr qreal trackWidth = 10;
constexpr int tickCount = 60;
constexpr int ticksPerMark = 5;

QColor faded(QColor color, float opacity)
{
    color.setAlphaF(opacity);
    return color;
}

} // namespace

DialFace::DialFace(QQuickItem *parent)
    : QQuickPaintedItem(parent)
{
    setAntialiasing(true);
}

void DialFace::setTint(const QColor &tint)
{
    if (m_tint == tint)
        return;
    m_tint = tint;
    Q_EMIT changed();
    update();
}

void DialFace::setLitTicks(int ticks)
{
    const int bounded = std::clamp<int>(ticks, 0, tickCount);
    if (m_litTicks == bounded)
        return;
    m_litTicks = bounded;
    Q_EMIT changed();
    update();
}

void DialFace::paint(QPainter *painter)
{
    const qreal side = std::min(width(), height());
    const QRectF square(0, 0, side, side);
    painter->setPen(Qt::NoPen);
    painter->setBrush(faded(QColor(TakeoverPalette::night), 0.46F));
    painter->drawEllipse(square);
    paintTicks(*painter, side);
    constexpr qreal half = trackWidth / 2;
    painter->setBrush(Qt::NoBrush);
    painter->setPen(QPen(faded(Qt::white, 0.08F), trackWidth));
    painter->drawEllipse(square.adjusted(half, half, -half, -half));
}

void DialFace::paintTicks(QPainter &painter, qreal side) const
{
    const qreal width = std::ceil(0.0066 * side);
    const qreal inset = trackWidth + std::max(6.0, 0.036 * side);
    for (int tick = 0; tick < tickCount; ++tick) {
        const bool isMark = tick % ticksPerMark == 0;
        const bool isLit = tick < m_litTicks;
        const qreal length = (isMark ? 0.034 : 0.020) * side;
        painter.save();
        painter.translate(side / 2, side / 2);
        painter.rotate(tick * 360.0 / tickCount);
        painter.setBrush(isLit ? faded(m_tint, isMark ? 0.85F : 0.50F)
                               : faded(Qt::white, isMark ? 0.22F : 0.11F));
        painter.drawRect(QRectF(-width / 2, inset - side / 2, width, length));
        painter.restore();
    }
}

} // namespace quorvane
