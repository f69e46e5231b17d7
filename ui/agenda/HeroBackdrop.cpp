// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "ui/agenda/HeroBackdrop.h"

#include "ui/agenda/HeroLight.h"

#include <QPainter>
#include <QPainterPath>

namespace quorvane {

HeroBackdrop::HeroBackdrop(QQuickItem *parent)
    : QQuickPaintedItem(parent)
{
    setAntialiasing(true);
}

template<class Value>
void HeroBackdrop::assign(Value &member, const Value &value)
{
    if (member == value)
        return;
    member = value;
    Q_EMIT changed();
    update();
}

void HeroBackdrop::setWarmth(qreal warmth)
{
    assign(m_warmth, warmth);
}

void HeroBackdrop::setSource(const QPointF &source)
{
    assign(m_source, source);
}

void HeroBackdrop::setRadius(qreal radius)
{
    assign(m_radius, radius);
}

void HeroBackdrop::setOutline(const QColor &outline)
{
    assign(m_outline, outline);
}

void HeroBackdrop::paint(QPainter *painter)
{
    const qreal ratio = painter->device()->devicePixelRatioF();
    const QSize pixels = (size() * ratio).toSize();
    const QImage light = HeroLight::image(pixels, ratio, m_source, m_warmth);
    // Half a line inside, so that the outline's edge is the item's.
    const QRectF card = boundingRect().adjusted(0.5, 0.5, -0.5, -0.5);
    QPainterPath path;
    path.addRoundedRect(card, m_radius - 0.5, m_radius - 0.5);
    painter->setPen(Qt::NoPen);
    painter->setBrush(QBrush(light));
    painter->drawPath(path);
    painter->setBrush(Qt::NoBrush);
    painter->setPen(QPen(m_outline, 1));
    painter->drawPath(path);
}

} // namespace quorvane
