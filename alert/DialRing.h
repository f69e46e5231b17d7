// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QColor>
#include <QQuickPaintedItem>

namespace quorvane {

/// The moving part of the countdown dial: the arc that empties over the last minute with its bloom, or, once
/// started, the ripples. The dial's square of `side` is centred in the item, which leaves `reach` pixels
/// around it.
class DialRing : public QQuickPaintedItem
{
    Q_OBJECT
    QML_ELEMENT
    Q_PROPERTY(QColor tint MEMBER m_tint WRITE setTint NOTIFY changed)
    Q_PROPERTY(qreal reach MEMBER m_reach WRITE setReach NOTIFY changed)
    Q_PROPERTY(qreal progress MEMBER m_progress WRITE setProgress NOTIFY changed)
    Q_PROPERTY(qreal ripplePhase MEMBER m_ripplePhase WRITE setRipplePhase NOTIFY changed)

public:
    explicit DialRing(QQuickItem *parent = nullptr);

    void setTint(const QColor &tint);
    void setReach(qreal reach);
    /// How much of the arc is left, from 0 (no arc) to 1.
    void setProgress(qreal progress);
    /// From 0 to 1, over and over; negative for no ripples.
    void setRipplePhase(qreal phase);

    void paint(QPainter *painter) override;

Q_SIGNALS:
    void changed();

private:
    void paintArc(QPainter &painter, const QRectF &dial) const;
    void paintRipples(QPainter &painter, const QRectF &dial) const;

    template<class Value>
    void assign(Value &member, const Value &value);

    QColor m_tint;
    qreal m_reach = 0;
    qreal m_progress = 0;
    qreal m_ripplePhase = -1;
};

} // namespace quorvane
