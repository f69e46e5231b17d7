// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "ui/agenda/MeetingColumn.h"

#include <QQuickWindow>

#include <algorithm>

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
    m_items.update(first.row(), last.row());
    markRestructured();
}

void MeetingColumn::updatePolish()
{
    if (!m_rows || !m_delegate || !isComponentComplete())
        return;
    if (m_isRestructured)
        restructure();
    settleCurrent();
    m_items.keepOnly([this](int row) { return isSeen(row, RowPlaces::rowHeight) || row == m_current.row(); });
    showMissing();
    m_items.place(m_places, width());
    m_items.markCurrent(m_current);
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

/// How far the uppermost row that is seen, and is still there, has moved. By its lower edge, where the row
/// itself is: a heading above it may have come or gone.
qreal MeetingColumn::shiftOfView() const
{
    const RowItems::Shown *anchor = m_viewTop > 0 ? m_items.below(m_viewTop) : nullptr;
    return anchor ? m_places.bottom(anchor->index.row()) - anchor->bottom() : 0;
}

// The current row is one that the user can see, unless the user works on it.
void MeetingColumn::settleCurrent()
{
    const RowItems::Shown *worked = focused();
    if (m_current.isValid() && (worked || isSeen(m_current.row(), 0)))
        return;
    int row = m_places.rowAt(std::max(0.0, m_viewTop));
    if (worked) {
        // The row has gone. The next one takes its place, or the last.
        const RowItems::Shown *next = m_items.below(worked->bottom());
        row = next ? next->index.row() : m_places.count() - 1;
    }
    m_current = row < 0 ? QModelIndex() : m_rows->index(row);
    if (worked)
        giveFocus(row);
}

bool MeetingColumn::isSeen(int row, qreal margin) const
{
    return m_places.bottom(row) > m_viewTop - margin && m_places.top(row) < m_viewTop + m_viewHeight + margin;
}

// A row more on each side than is seen, so that scrolling never shows a gap.
void MeetingColumn::showMissing()
{
    if (m_places.count() == 0)
        return;
    const int first = m_places.rowAt(m_viewTop - RowPlaces::rowHeight);
    const int last = m_places.rowAt(m_viewTop + m_viewHeight + RowPlaces::rowHeight);
    for (int row = first; row <= last; ++row)
        m_items.show(*m_rows, row, *m_delegate);
    if (m_current.isValid())
        m_items.show(*m_rows, m_current.row(), *m_delegate);
}

const RowItems::Shown *MeetingColumn::focused() const
{
    return window() ? m_items.around(window()->activeFocusItem()) : nullptr;
}

void MeetingColumn::followFocus()
{
    const RowItems::Shown *shown = focused();
    if (!shown || !shown->index.isValid() || shown->index == m_current)
        return;
    m_current = shown->index;
    m_items.markCurrent(m_current);
}

void MeetingColumn::focusRow(int row)
{
    m_current = m_rows->index(row);
    giveFocus(row);
    // Only now: what has the focus cannot be taken out of Tab's way.
    m_items.markCurrent(m_current);
    polish();
}

void MeetingColumn::giveFocus(int row)
{
    showMissing();
    m_items.place(m_places, width());
    if (const RowItems::Shown *shown = m_items.at(row))
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
