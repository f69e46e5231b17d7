// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "alert/Glow.h"

#include "alert/GlowImage.h"
#include "alert/TakeoverPalette.h"

#include <QQuickWindow>
#include <QSGImageNode>

namespace quorvane {

Glow::Glow(QQuickItem *parent)
    : QQuickItem(parent)
{
    setFlag(ItemHasContents);
}

void Glow::setBreath(qreal breath)
{
    if (qFuzzyCompare(m_breath, breath))
        return;
    m_breath = breath;
    Q_EMIT changed();
    update();
}

void Glow::setTint(const QColor &tint)
{
    if (m_tint == tint)
        return;
    m_tint = tint;
    Q_EMIT changed();
    update();
}

QSGNode *Glow::updatePaintNode(QSGNode *node, UpdatePaintNodeData *)
{
    // One image pixel per logical pixel, also on dense displays: the light has no detail that would need
    // more.
    const QSize pixels = size().toSize();
    auto *picture = static_cast<QSGImageNode *>(node);
    if (pixels.isEmpty()) {
        delete picture;
        return nullptr;
    }
    if (!picture) {
        picture = window()->createImageNode();
        picture->setOwnsTexture(true);
        picture->setFiltering(QSGTexture::Nearest);
    }
    const QImage image =
        glowImage(pixels, m_breath, TakeoverPalette::glow(m_tint), QColor(TakeoverPalette::night));
    picture->setTexture(window()->createTextureFromImage(image));
    picture->setRect(boundingRect());
    picture->setSourceRect(QRectF(QPointF(), pixels));
    return picture;
}

void Glow::geometryChange(const QRectF &now, const QRectF &before)
{
    QQuickItem::geometryChange(now, before);
    if (now.size() != before.size())
        update();
}

} // namespace quorvane
