// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QColor>
#include <QQuickPaintedItem>

namespace quorvane {

/// The sixty ticks of a dial, every fifth of them longer, around nothing.
class TickRing : public QQuickPaintedItem
{
    Q_OBJECT
    QML_ELEMENT
    Q_PROPERTY(QColor markColor MEMBER m_markColor WRITE setMarkColor NOTIFY changed)
    Q_PROPERTY(QColor tickColor MEMBER m_tickColor WRITE setTickColor NOTIFY changed)

public:
    explicit TickRing(QQuickItem *parent = nullptr);

    /// Of every fifth tick, and of the others.
    void setMarkColor(const QColor &color);
    void setTickColor(const QColor &color);

    void paint(QPainter *painter) override;

Q_SIGNALS:
    void changed();

private:
    void assign(QColor &member, const QColor &color);

    QColor m_markColor;
    QColor m_tickColor;
};

} // namespace quorvane
