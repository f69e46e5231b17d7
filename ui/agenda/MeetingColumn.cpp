// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "ui/agenda/MeetingColumn.h"

#include <QQmlContext>
#include <QQuickWindow>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace quorvane {

MeetingColumn::MeetingColumn(QQuickItem *parent)
    : QQuickItem(parent)
{
}

MeetingColumn::~MeetingColumn()
{
    disconnect(m_focusWatch);
}

void MeetingColumn::setRows(MeetingRows *rows)
{
    if (m_rows == rows || !rows)
        return;
    m_rows = rows;
    connect(rows, &QAbstractItemModel::rowsInserted, this, &MeetingColumn::markRestructured);
    connect(rows, &QAbstractItemModel::rowsRemoved, this, &MeetingColumn::markRestructured);
    connect(rows, &QAbstractItemModel::rowsMoved, this, &MeetingColumn::markRestructured);
    connect(rows, &QAbstractItemModel::dataChanged, this, &MeetingColumn::showChange);
    Q_EMIT rowsChanged();
    markRestructured();
}

void MeetingColumn::setViewTop(qreal top)
{
    if (m_viewTop == top)
        return;
    m_viewTop = top;
    Q_EMIT viewChanged();
    polish();
}

void MeetingColumn::setViewHeight(qreal height)
{
    if (m_viewHeight == height)
        return;
    m_viewHeight = height;
    Q_EMIT viewChanged();
    polish();
}

void MeetingColumn::markRestructured()
{
    m_isRestructured = true;
    polish();
}

// What the row says is shown at once: whoever has changed it may go on with its item.
void MeetingColumn::showChange(const QModelIndex &first, const QModelIndex &last)
{
    for (const Shown &shown : m_shown) {
        if (shown.index.row() >= first.row() && shown.index.row() <= last.row())
            shown.item->setProperty("row", shown.index.data(MeetingRows::rowRole));
    }
    markRestructured();
}

void MeetingColumn::updatePolish()
{
    if (!m_rows || !isComponentComplete())
        return;
    if (m_isRestructured)
        restructure();
    assignItems();
}

void MeetingColumn::restructure()
{
    m_isRestructured = false;
    m_places = RowPlaces(*m_rows);
    setImplicitHeight(m_places.height());
    const qreal shift = shiftOfView();
    if (shift != 0)
        Q_EMIT shifted(shift);
}

/// How far the uppermost row that is seen, and is still there, has moved.
qreal MeetingColumn::shiftOfView() const
{
    if (m_viewTop <= 0)
        return 0;
    const Shown *anchor = nullptr;
    for (const Shown &shown : m_shown) {
        const bool isSeen = shown.item->y() + shown.item->height() > m_viewTop;
        if (shown.index.isValid() && isSeen && (!anchor || shown.item->y() < anchor->item->y()))
            anchor = &shown;
    }
    // By its lower edge, where the row itself is: a heading above it may have come or gone.
    return anchor ? m_places.bottom(anchor->index.row()) - (anchor->item->y() + anchor->item->height()) : 0;
}

void MeetingColumn::assignItems()
{
    settleCurrent();
    dropUnwanted();
    showMissing();
    place();
    markCurrent();
}

// The current row is one that the user can see, unless the user works on it.
void MeetingColumn::settleCurrent()
{
    const Shown *worked = focused();
    if (m_current.isValid()) {
        const int row = m_current.row();
        const bool isSeen = m_places.bottom(row) > m_viewTop && m_places.top(row) < m_viewTop + m_viewHeight;
        if (worked || isSeen)
            return;
    }
    const int row = worked ? rowAfter(*worked) : m_places.rowAt(std::max(0.0, m_viewTop));
    m_current = row < 0 ? QModelIndex() : m_rows->index(row);
    if (worked)
        giveFocus(row);
}

/// The row that takes the place of one that has gone: the next one of those that were shown, else the last.
int MeetingColumn::rowAfter(const Shown &gone) const
{
    const Shown *next = nullptr;
    for (const Shown &shown : m_shown) {
        const bool isBelow = shown.item->y() > gone.item->y();
        if (shown.index.isValid() && isBelow && (!next || shown.item->y() < next->item->y()))
            next = &shown;
    }
    return next ? next->index.row() : m_places.count() - 1;
}

void MeetingColumn::giveFocus(int row)
{
    showMissing();
    place();
    if (const Shown *shown = shownAt(row))
        shown->item->forceActiveFocus(Qt::TabFocusReason);
    else
        letGoOfFocus();
}

// What is not seen any more would keep it.
void MeetingColumn::letGoOfFocus()
{
    if (focused())
        window()->activeFocusItem()->setFocus(false);
}

bool MeetingColumn::isWanted(int row) const
{
    if (row < 0)
        return false;
    // A row more on each side, so that scrolling never shows a gap.
    const bool isNear = m_places.bottom(row) > m_viewTop - RowPlaces::rowHeight &&
                        m_places.top(row) < m_viewTop + m_viewHeight + RowPlaces::rowHeight;
    return isNear || row == m_current.row();
}

void MeetingColumn::dropUnwanted()
{
    const auto unwanted =
        std::ranges::partition(m_shown, [this](const Shown &shown) { return isWanted(shown.index.row()); });
    std::ranges::for_each(unwanted, [this](const Shown &shown) { giveUp(shown); });
    m_shown.erase(unwanted.begin(), unwanted.end());
}

void MeetingColumn::giveUp(const Shown &shown)
{
    shown.item->setVisible(false);
    m_spare.push_back(shown.item);
}

void MeetingColumn::showMissing()
{
    if (m_places.count() == 0)
        return;
    const int first = m_places.rowAt(m_viewTop - RowPlaces::rowHeight);
    const int last = m_places.rowAt(m_viewTop + m_viewHeight + RowPlaces::rowHeight);
    for (int row = first; row <= last; ++row) {
        if (!shownAt(row))
            m_shown.push_back({.index = m_rows->index(row), .item = takeItem(row)});
    }
    if (m_current.isValid() && !shownAt(m_current.row()))
        m_shown.push_back({.index = m_current, .item = takeItem(m_current.row())});
    std::erase_if(m_shown, [](const Shown &shown) { return !shown.item; });
}

QQuickItem *MeetingColumn::takeItem(int row)
{
    if (m_spare.empty())
        return createItem(row);
    QQuickItem *item = m_spare.back();
    m_spare.pop_back();
    item->setProperty("row", QVariant::fromValue(m_rows->at(row)));
    item->setVisible(true);
    return item;
}

QQuickItem *MeetingColumn::createItem(int row)
{
    const QVariantMap properties{{u"row"_s, QVariant::fromValue(m_rows->at(row))},
                                 {u"meetings"_s, QVariant::fromValue(m_rows)},
                                 {u"isCurrent"_s, false}};
    QObject *object = m_delegate->createWithInitialProperties(properties, m_delegate->creationContext());
    auto *item = qobject_cast<QQuickItem *>(object);
    if (!item)
        return nullptr;
    item->setParent(this);
    item->setParentItem(this);
    return item;
}

// The items' order follows the rows', which is the order in which they are read out.
void MeetingColumn::place()
{
    std::ranges::sort(m_shown, {}, [](const Shown &shown) { return shown.index.row(); });
    const QQuickItem *above = nullptr;
    for (const Shown &shown : m_shown) {
        const int row = shown.index.row();
        if (row < 0)
            continue;
        const qreal top = m_places.top(row);
        shown.item->setPosition({0, top});
        shown.item->setSize({width(), m_places.bottom(row) - top});
        if (above)
            shown.item->stackAfter(above);
        above = shown.item;
    }
}

// Only once the focus is where it shall be: it cannot be kept from what has it.
void MeetingColumn::markCurrent()
{
    for (const Shown &shown : m_shown)
        shown.item->setProperty("isCurrent", shown.index == m_current);
}

const MeetingColumn::Shown *MeetingColumn::shownAt(int row) const
{
    const auto found =
        std::ranges::find_if(m_shown, [row](const Shown &shown) { return shown.index.row() == row; });
    return found == m_shown.end() ? nullptr : &*found;
}

const MeetingColumn::Shown *MeetingColumn::focused() const
{
    const QQuickItem *active = window() ? window()->activeFocusItem() : nullptr;
    if (!active || !isAncestorOf(active))
        return nullptr;
    const auto found = std::ranges::find_if(m_shown, [active](const Shown &shown) {
        return shown.item == active || shown.item->isAncestorOf(active);
    });
    return found == m_shown.end() ? nullptr : &*found;
}

void MeetingColumn::followFocus()
{
    const Shown *shown = focused();
    if (!shown || !shown->index.isValid() || shown->index == m_current)
        return;
    m_current = shown->index;
    markCurrent();
}

void MeetingColumn::focusRow(int row)
{
    m_current = m_rows->index(row);
    giveFocus(row);
    markCurrent();
    polish();
}

std::optional<int> MeetingColumn::rowForKey(int key, int current) const
{
    switch (key) {
    case Qt::Key_Up:
        return current - 1;
    case Qt::Key_Down:
        return current + 1;
    case Qt::Key_PageUp:
        return std::min(current - 1, m_places.rowAt(m_places.top(current) - m_viewHeight));
    case Qt::Key_PageDown:
        return std::max(current + 1, m_places.rowAt(m_places.top(current) + m_viewHeight));
    case Qt::Key_Home:
        return 0;
    case Qt::Key_End:
        return m_places.count() - 1;
    default:
        return std::nullopt;
    }
}

void MeetingColumn::keyPressEvent(QKeyEvent *event)
{
    // The rows may have changed since they were last laid out.
    updatePolish();
    const auto row = m_current.isValid() ? rowForKey(event->key(), m_current.row()) : std::nullopt;
    if (!row) {
        event->ignore();
        return;
    }
    focusRow(std::clamp(*row, 0, m_places.count() - 1));
}

void MeetingColumn::componentComplete()
{
    QQuickItem::componentComplete();
    polish();
}

void MeetingColumn::geometryChange(const QRectF &now, const QRectF &before)
{
    QQuickItem::geometryChange(now, before);
    if (now.width() != before.width())
        polish();
}

void MeetingColumn::itemChange(ItemChange change, const ItemChangeData &data)
{
    QQuickItem::itemChange(change, data);
    if (change == ItemVisibleHasChanged && !data.boolValue)
        letGoOfFocus();
    if (change != ItemSceneChange)
        return;
    disconnect(m_focusWatch);
    if (data.window)
        m_focusWatch =
            connect(data.window, &QQuickWindow::activeFocusItemChanged, this, &MeetingColumn::followFocus);
}

} // namespace quorvane
