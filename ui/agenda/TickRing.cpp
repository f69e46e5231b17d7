// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "ui/agenda/TickRing.h"

#include <QPainter>

namespace quorvane {

namespace {

constexpr int tickCount = 60;
constexpr int ticksPerMark = 5;
constexpr qreal markLength = 13;
constexpr qreal tickLength = 7;

} // namespace

TickRing::TickRing(QQuickItem *parent)
    : QQuickPaintedItem(parent)
{
    setAntialiasing(true);
}

void TickRing::assign(QColor &member, const QColor &color)
{
    if (member == color)
        return;
    member = color;
    Q_EMIT changed();
    update();
}

void TickRing::setMarkColor(const QColor &color)
{
    assign(m_markColor, color);
}

void TickRing::setTickColor(const QColor &color)
{
    assign(m_tickColor, color);
}

void TickRing::paint(QPainter *painter)
{
    painter->translate(width() / 2, height() / 2);
    painter->setPen(Qt::NoPen);
    for (int tick = 0; tick < tickCount; ++tick) {
        const bool isMark = tick % ticksPerMark == 0;
        painter->setBrush(isMark ? m_markColor : m_tickColor);
        painter->drawRect(QRectF(-1, -height() / 2, 2, isMark ? markLength : tickLength));
        painter->rotate(360.0 / tickCount);
    }
}

} // namespace quorvane
