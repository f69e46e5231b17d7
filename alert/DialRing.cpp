// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "alert/DialRing.h"

#include <QPainter>

#include <algorithm>
#include <array>
#include <cmath>

namespace quorvane {

namespace {

constexpr qreal arcWidth = 10;
/// The bloom is tuned for a dial of this side and scales with it.
constexpr qreal bloomSide = 302;

struct Bloom
{
    qreal extraWidth;
    float opacity;
};
constexpr std::array<Bloom, 4> blooms{{{34, 0.022F}, {22, 0.04F}, {13, 0.06F}, {6, 0.085F}}};

/// Where in its life each ripple is at phase 0.
constexpr std::array<qreal, 2> rippleOffsets{0.84, 0.20};

float rippleOpacity(qreal life)
{
    return static_cast<float>(std::clamp(0.647 - 0.667 * life, 0.0, 1.0));
}

} // namespace

DialRing::DialRing(QQuickItem *parent)
    : QQuickPaintedItem(parent)
{
    setAntialiasing(true);
}

template<class Value>
void DialRing::assign(Value &member, const Value &value)
{
    if (member == value)
        return;
    member = value;
    Q_EMIT changed();
    update();
}

void DialRing::setTint(const QColor &tint)
{
    assign(m_tint, tint);
}

void DialRing::setReach(qreal reach)
{
    assign(m_reach, reach);
}

void DialRing::setProgress(qreal progress)
{
    assign(m_progress, std::clamp(progress, 0.0, 1.0));
}

void DialRing::setRipplePhase(qreal phase)
{
    assign(m_ripplePhase, phase);
}

void DialRing::paint(QPainter *painter)
{
    const QRectF dial = boundingRect().adjusted(m_reach, m_reach, -m_reach, -m_reach);
    painter->setBrush(Qt::NoBrush);
    if (m_progress > 0)
        paintArc(*painter, dial);
    if (m_ripplePhase >= 0)
        paintRipples(*painter, dial);
}

void DialRing::paintArc(QPainter &painter, const QRectF &dial) const
{
    constexpr qreal half = arcWidth / 2;
    const QRectF circle = dial.adjusted(half, half, -half, -half);
    // QPainter counts sixteenths of a degree, anticlockwise from three o'clock.
    constexpr int twelveOClock = 90 * 16;
    const int sweep = -static_cast<int>(std::lround(m_progress * 360 * 16));
    const auto stroke = [&](qreal width, float opacity) {
        QColor color = m_tint;
        color.setAlphaF(opacity);
        painter.setPen(QPen(color, width, Qt::SolidLine, Qt::RoundCap));
        painter.drawArc(circle, twelveOClock, sweep);
    };
    for (const Bloom &bloom : blooms)
        stroke(arcWidth + bloom.extraWidth * dial.width() / bloomSide, bloom.opacity);
    stroke(arcWidth, 1);
}

void DialRing::paintRipples(QPainter &painter, const QRectF &dial) const
{
    constexpr qreal lineWidth = 2;
    for (const qreal offset : rippleOffsets) {
        const qreal life = std::fmod(m_ripplePhase + offset, 1.0);
        // The last two pixels of the reach are the line's own.
        const qreal grown = life * (m_reach - lineWidth);
        QColor color = m_tint;
        color.setAlphaF(rippleOpacity(life));
        painter.setPen(QPen(color, lineWidth));
        painter.drawEllipse(dial.adjusted(-grown, -grown, grown, grown));
    }
}

} // namespace quorvane
