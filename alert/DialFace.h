// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QColor>
#include <QQuickPaintedItem>

namespace quorvane {

/// The still part of the countdown dial: a darker face, the track of the ring, and sixty ticks of which as
/// many are lit as seconds remain. Repainted once per second at most.
class DialFace : public QQuickPaintedItem
{
    Q_OBJECT
    QML_ELEMENT
    Q_PROPERTY(QColor tint MEMBER m_tint WRITE setTint NOTIFY changed)
    Q_PROPERTY(int litTicks MEMBER m_litTicks WRITE setLitTicks NOTIFY changed)

public:
    explicit DialFace(QQuickItem *parent = nullptr);

    void setTint(const QColor &tint);
    void setLitTicks(int ticks);

    void paint(QPainter *painter) override;

Q_SIGNALS:
    void changed();

private:
    void paintTicks(QPainter &painter, qreal side) const;

    QColor m_tint;
    int m_litTicks = 0;
};

} // namespace quorvane
