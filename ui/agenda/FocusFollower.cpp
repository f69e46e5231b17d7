// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "ui/agenda/FocusFollower.h"

#include <QGuiApplication>
#include <QQuickWindow>

namespace quorvane {

namespace {

/// Room for the focus ring, and so that a fading edge does not lie on what has the focus.
constexpr qreal margin = 40;

} // namespace

FocusFollower::FocusFollower(QQuickItem *parent)
    : QQuickItem(parent)
{
}

FocusFollower::~FocusFollower()
{
    disconnect(m_focusWatch);
}

void FocusFollower::itemChange(ItemChange change, const ItemChangeData &data)
{
    QQuickItem::itemChange(change, data);
    if (change != ItemSceneChange)
        return;
    disconnect(m_focusWatch);
    if (data.window)
        m_focusWatch =
            connect(data.window, &QQuickWindow::activeFocusItemChanged, this, &FocusFollower::follow);
}

void FocusFollower::follow()
{
    const QQuickItem *active = window()->activeFocusItem();
    if (!active || !m_content || !m_content->isAncestorOf(active))
        return;
    if (QGuiApplication::mouseButtons() != Qt::NoButton)
        return;
    const QRectF place = active->mapRectToItem(this, active->boundingRect()).adjusted(0, -margin, 0, margin);
    if (place.top() < 0)
        Q_EMIT scrollWanted(place.top());
    else if (place.bottom() > height())
        Q_EMIT scrollWanted(std::min(place.bottom() - height(), place.top()));
}

} // namespace quorvane
