// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "alert/PlainView.h"

#include "alert/Takeover.h"

#include <QMouseEvent>
#include <QPainter>

namespace quorvane {

namespace {

constexpr QColor creamColor(247, 240, 229);
constexpr QColor amberColor(255, 175, 69);
constexpr QColor inkColor(30, 19, 5);

} // namespace

PlainView::PlainView(Takeover &takeover, QQuickItem *parent)
    : QQuickPaintedItem(parent)
    , m_takeover(takeover)
{
    setAcceptedMouseButtons(Qt::LeftButton);
}

void PlainView::paint(QPainter *painter)
{
    const QRectF area = boundingRect();
    QFont font = painter->font();
    font.setPixelSize(qMax(18, qRound(area.height() / 16)));
    font.setBold(true);
    painter->setFont(font);
    painter->setPen(creamColor);
    painter->drawText(area.adjusted(24, 24, -24, -area.height() / 2), Qt::AlignCenter | Qt::TextWordWrap,
                      m_takeover.title());

    font.setPixelSize(qMax(14, font.pixelSize() / 2));
    painter->setFont(font);
    painter->drawText(area.adjusted(24, area.height() / 2, -24, -area.height() / 4), Qt::AlignCenter,
                      m_takeover.timeRange());

    const QRectF button = buttonArea();
    painter->setRenderHint(QPainter::Antialiasing);
    painter->setPen(Qt::NoPen);
    painter->setBrush(amberColor);
    painter->drawRoundedRect(button, button.height() / 2, button.height() / 2);
    painter->setPen(inkColor);
    font.setPixelSize(18);
    painter->setFont(font);
    painter->drawText(button, Qt::AlignCenter, tr("I’m ready"));
}

void PlainView::mousePressEvent(QMouseEvent *event)
{
    event->setAccepted(buttonArea().contains(event->position()));
}

void PlainView::mouseReleaseEvent(QMouseEvent *event)
{
    if (buttonArea().contains(event->position()))
        m_takeover.acknowledge();
}

QRectF PlainView::buttonArea() const
{
    constexpr QSizeF size(240, 54);
    return {{(width() - size.width()) / 2, height() * 0.8 - size.height() / 2}, size};
}

} // namespace quorvane
