// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QColor>
#include <QQuickItem>

namespace quorvane {

/// The breathing light behind the takeover, centred in the item. Painted anew whenever `breath` or `tint`
/// changes.
class Glow : public QQuickItem
{
    Q_OBJECT
    QML_ELEMENT
    Q_PROPERTY(qreal breath MEMBER m_breath WRITE setBreath NOTIFY changed)
    Q_PROPERTY(QColor tint MEMBER m_tint WRITE setTint NOTIFY changed)

public:
    explicit Glow(QQuickItem *parent = nullptr);

    /// The scale of the light, from 0.92 to 1.08.
    void setBreath(qreal breath);
    void setTint(const QColor &tint);

Q_SIGNALS:
    void changed();

protected:
    QSGNode *updatePaintNode(QSGNode *node, UpdatePaintNodeData *data) override;
    void geometryChange(const QRectF &now, const QRectF &before) override;

private:
    qreal m_breath = 1;
    QColor m_tint;
};

} // namespace quorvane
