// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QColor>
#include <QPointF>
#include <QQuickPaintedItem>

namespace quorvane {

/// The hero's card: a light that shines from the dial into the dark, or what is left of it when the light is
/// out. Painted once for a size and a warmth.
class HeroBackdrop : public QQuickPaintedItem
{
    Q_OBJECT
    QML_ELEMENT
    Q_PROPERTY(qreal warmth MEMBER m_warmth WRITE setWarmth NOTIFY changed)
    Q_PROPERTY(QPointF source MEMBER m_source WRITE setSource NOTIFY changed)
    Q_PROPERTY(qreal radius MEMBER m_radius WRITE setRadius NOTIFY changed)
    Q_PROPERTY(QColor outline MEMBER m_outline WRITE setOutline NOTIFY changed)

public:
    explicit HeroBackdrop(QQuickItem *parent = nullptr);

    /// From 0, the light is out, to 1.
    void setWarmth(qreal warmth);
    /// Where the light is.
    void setSource(const QPointF &source);
    /// Of the card's corners.
    void setRadius(qreal radius);
    void setOutline(const QColor &outline);

    void paint(QPainter *painter) override;

Q_SIGNALS:
    void changed();

private:
    template<class Value>
    void assign(Value &member, const Value &value);

    qreal m_warmth = 1;
    QPointF m_source;
    qreal m_radius = 0;
    QColor m_outline;
};

} // namespace quorvane
