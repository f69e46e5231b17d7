// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QColor>
#include <QQuickPaintedItem>

namespace quorvane {

/// An hour as a dial: the minute hand as the vane on the ring, and from it on the way to the meeting's start.
/// The ring of `side` is centred in the item, which leaves `reach` pixels around it for the vane's tip and
/// the way's glow.
class HourDial : public QQuickPaintedItem
{
    Q_OBJECT
    QML_ELEMENT
    Q_PROPERTY(QColor tint MEMBER m_tint WRITE setTint NOTIFY changed)
    Q_PROPERTY(qreal reach MEMBER m_reach WRITE setReach NOTIFY changed)
    Q_PROPERTY(qreal vane MEMBER m_vane WRITE setVane NOTIFY changed)
    Q_PROPERTY(qreal sweep MEMBER m_sweep WRITE setSweep NOTIFY changed)

public:
    explicit HourDial(QQuickItem *parent = nullptr);

    void setTint(const QColor &tint);
    void setReach(qreal reach);
    /// Degrees from twelve o'clock, clockwise.
    void setVane(qreal vane);
    /// Degrees clockwise from the vane; 0 for no way.
    void setSweep(qreal sweep);

    void paint(QPainter *painter) override;

Q_SIGNALS:
    void changed();

private:
    void paintFace(QPainter &painter, qreal side) const;
    void paintTicks(QPainter &painter, qreal side) const;
    void paintWay(QPainter &painter, qreal side) const;
    void paintVane(QPainter &painter, qreal side) const;

    template<class Value>
    void assign(Value &member, const Value &value);

    QColor m_tint;
    qreal m_reach = 0;
    qreal m_vane = 0;
    qreal m_sweep = 0;
};

} // namespace quorvane
