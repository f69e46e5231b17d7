// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "ui/agenda/HourDial.h"

#include <QPainter>

#include <array>
#include <cmath>

namespace quorvane {

namespace {

constexpr qreal ringWidth = 6;
constexpr int tickCount = 60;
constexpr qreal degreesPerTick = 360.0 / tickCount;
constexpr int ticksPerMark = 5;

constexpr QRgb night = 0x12100D;
constexpr QRgb cream = 0xF7F0E5;
constexpr QRgb vaneShade = 0xDDBD8A;
constexpr QRgb seam = 0x2A2016;

struct Bloom
{
    qreal extraWidth;
    float opacity;
};
constexpr std::array<Bloom, 2> blooms{{{14, 0.07F}, {6, 0.08F}}};

QColor faded(QColor color, float opacity)
{
    color.setAlphaF(opacity);
    return color;
}

} // namespace

HourDial::HourDial(QQuickItem *parent)
    : QQuickPaintedItem(parent)
{
    setAntialiasing(true);
}

template<class Value>
void HourDial::assign(Value &member, const Value &value)
{
    if (member == value)
        return;
    member = value;
    Q_EMIT changed();
    update();
}

void HourDial::setTint(const QColor &tint)
{
    assign(m_tint, tint);
}

void HourDial::setReach(qreal reach)
{
    assign(m_reach, reach);
}

void HourDial::setVane(qreal vane)
{
    assign(m_vane, vane);
}

void HourDial::setSweep(qreal sweep)
{
    assign(m_sweep, sweep);
}

void HourDial::paint(QPainter *painter)
{
    painter->translate(width() / 2, height() / 2);
    const qreal side = width() - 2 * m_reach;
    paintFace(*painter, side);
    paintTicks(*painter, side);
    if (m_sweep > 0)
        paintWay(*painter, side);
    paintVane(*painter, side);
}

void HourDial::paintFace(QPainter &painter, qreal side) const
{
    const qreal half = side / 2;
    painter.setPen(Qt::NoPen);
    painter.setBrush(faded(QColor(night), 0.50F));
    painter.drawEllipse(QPointF(), half, half);
    painter.setBrush(Qt::NoBrush);
    painter.setPen(QPen(faded(Qt::white, 0.08F), ringWidth));
    painter.drawEllipse(QPointF(), half - ringWidth / 2, half - ringWidth / 2);
}

void HourDial::paintTicks(QPainter &painter, qreal side) const
{
    const qreal top = ringWidth + 0.05 * side - side / 2;
    painter.setPen(Qt::NoPen);
    for (int tick = 0; tick < tickCount; ++tick) {
        const bool isMark = tick % ticksPerMark == 0;
        const qreal way = std::fmod(tick * degreesPerTick - m_vane + 360, 360);
        const bool isLit = m_sweep > 0 && way <= m_sweep;
        painter.save();
        painter.rotate(tick * degreesPerTick);
        painter.setBrush(isLit ? faded(m_tint, isMark ? 1.0F : 0.75F)
                               : faded(Qt::white, isMark ? 0.28F : 0.16F));
        painter.drawRect(QRectF(-1, top, 2, isMark ? 7 : 4.5));
        painter.restore();
    }
}

void HourDial::paintWay(QPainter &painter, qreal side) const
{
    const qreal radius = (side - ringWidth) / 2;
    const QRectF circle(-radius, -radius, 2 * radius, 2 * radius);
    // QPainter counts sixteenths of a degree, anticlockwise from three o'clock.
    const int start = static_cast<int>(std::lround((90 - m_vane) * 16));
    const int sweep = -static_cast<int>(std::lround(m_sweep * 16));
    painter.setBrush(Qt::NoBrush);
    const auto stroke = [&](qreal width, float opacity) {
        painter.setPen(QPen(faded(m_tint, opacity), width, Qt::SolidLine, Qt::RoundCap));
        painter.drawArc(circle, start, sweep);
    };
    for (const Bloom &bloom : blooms)
        stroke(ringWidth + bloom.extraWidth, bloom.opacity);
    stroke(ringWidth, 1);
}

// A kite, 12 by 36, in two halves like a folded sheet, with a dark seam to the ring.
void HourDial::paintVane(QPainter &painter, qreal side) const
{
    const qreal ring = -(side - ringWidth) / 2;
    const QPointF tip(0, ring - 16);
    const QPointF tail(0, ring + 20);
    const QPointF right(6, ring + 9);
    const QPointF left(-6, ring + 9);
    const std::array<QPointF, 4> kite{tip, right, tail, left};
    const std::array<QPointF, 3> shade{tip, right, tail};
    painter.save();
    painter.rotate(m_vane);
    painter.setBrush(QColor(cream));
    painter.setPen(QPen(faded(QColor(seam), 0.85F), 4.5, Qt::SolidLine, Qt::SquareCap, Qt::RoundJoin));
    painter.drawConvexPolygon(kite.data(), static_cast<int>(kite.size()));
    painter.setPen(QPen(QColor(cream), 1.2, Qt::SolidLine, Qt::SquareCap, Qt::RoundJoin));
    painter.drawConvexPolygon(kite.data(), static_cast<int>(kite.size()));
    painter.setPen(Qt::NoPen);
    painter.setBrush(QColor(vaneShade));
    painter.drawConvexPolygon(shade.data(), static_cast<int>(shade.size()));
    painter.restore();
}

} // namespace quorvane
