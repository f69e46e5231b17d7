// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "ui/components/PressArea.h"

#include <utility>

namespace quorvane {

PressArea::PressArea(QQuickItem *parent)
    : QQuickItem(parent)
{
    setActiveFocusOnTab(true);
    setAcceptedMouseButtons(Qt::LeftButton);
    setAcceptHoverEvents(true);
    connect(this, &QQuickItem::activeFocusChanged, this, &PressArea::visualFocusChanged);
}

void PressArea::setBackground(QQuickItem *item)
{
    if (item == m_background)
        return;
    m_background = item;
    adopt(item, -1);
    Q_EMIT backgroundChanged();
}

void PressArea::setContentItem(QQuickItem *item)
{
    if (item == m_contentItem)
        return;
    m_contentItem = item;
    adopt(item, 0);
    Q_EMIT contentItemChanged();
}

void PressArea::click()
{
    if (isEnabled())
        Q_EMIT clicked();
}

void PressArea::mousePressEvent(QMouseEvent *event)
{
    setUsesKeys(false);
    forceActiveFocus(Qt::MouseFocusReason);
    setPressed(true);
    event->accept();
}

void PressArea::mouseMoveEvent(QMouseEvent *event)
{
    setPressed(contains(event->position()));
}

void PressArea::mouseReleaseEvent(QMouseEvent *event)
{
    const bool wasPressed = m_pressed;
    setPressed(false);
    if (wasPressed && contains(event->position()))
        click();
}

void PressArea::mouseUngrabEvent()
{
    setPressed(false);
}

void PressArea::hoverEnterEvent(QHoverEvent *event)
{
    setHovered(true);
    // What it lies in is pointed at as well.
    event->ignore();
}

void PressArea::hoverLeaveEvent(QHoverEvent *event)
{
    setHovered(false);
    event->ignore();
}

void PressArea::keyPressEvent(QKeyEvent *event)
{
    setUsesKeys(true);
    const bool isPlain = !(event->modifiers() & ~(Qt::ShiftModifier | Qt::KeypadModifier));
    const bool isSpace = event->key() == Qt::Key_Space;
    const bool isReturn = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    event->setAccepted(isPlain && (isSpace || isReturn));
    if (!event->isAccepted() || event->isAutoRepeat())
        return;
    if (isReturn) {
        click();
        return;
    }
    m_spaceDown = true;
    setPressed(true);
}

void PressArea::keyReleaseEvent(QKeyEvent *event)
{
    event->setAccepted(event->key() == Qt::Key_Space);
    if (!event->isAccepted() || event->isAutoRepeat() || !std::exchange(m_spaceDown, false))
        return;
    setPressed(false);
    click();
}

void PressArea::focusInEvent(QFocusEvent *event)
{
    QQuickItem::focusInEvent(event);
    const Qt::FocusReason reason = event->reason();
    if (reason == Qt::TabFocusReason || reason == Qt::BacktabFocusReason || reason == Qt::ShortcutFocusReason)
        setUsesKeys(true);
    else if (reason == Qt::MouseFocusReason)
        setUsesKeys(false);
    // Otherwise it is as when the focus was here last: before another window or a sheet had it.
}

void PressArea::focusOutEvent(QFocusEvent *event)
{
    QQuickItem::focusOutEvent(event);
    m_spaceDown = false;
    setPressed(false);
}

void PressArea::itemChange(ItemChange change, const ItemChangeData &data)
{
    QQuickItem::itemChange(change, data);
    if ((change == ItemEnabledHasChanged || change == ItemVisibleHasChanged) && !data.boolValue) {
        m_spaceDown = false;
        setPressed(false);
        setHovered(false);
    }
}

void PressArea::geometryChange(const QRectF &geometry, const QRectF &before)
{
    QQuickItem::geometryChange(geometry, before);
    if (m_background)
        m_background->setSize(size());
    if (m_contentItem)
        m_contentItem->setSize(size());
}

void PressArea::setPressed(bool pressed)
{
    if (pressed == m_pressed)
        return;
    m_pressed = pressed;
    Q_EMIT pressedChanged();
}

void PressArea::setHovered(bool hovered)
{
    if (hovered == m_hovered)
        return;
    m_hovered = hovered;
    Q_EMIT hoveredChanged();
}

void PressArea::setUsesKeys(bool usesKeys)
{
    if (usesKeys == m_usesKeys)
        return;
    m_usesKeys = usesKeys;
    Q_EMIT visualFocusChanged();
}

void PressArea::adopt(QQuickItem *item, double z)
{
    if (!item)
        return;
    item->setParentItem(this);
    item->setZ(z);
    item->setSize(size());
}

} // namespace quorvane
