// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "ui/agenda/MeetingRows.h"
#include "ui/agenda/RowPlaces.h"

#include <QPersistentModelIndex>
#include <QQmlComponent>
#include <QQuickItem>

#include <functional>
#include <vector>

namespace quorvane {

/// The items of those rows of the agenda's list that have one. An item that is not needed any more is used
/// again for another row.
class RowItems final
{
public:
    struct Shown
    {
        /// Invalid once the row has gone.
        QPersistentModelIndex index;
        QQuickItem *item = nullptr;

        [[nodiscard]] qreal bottom() const { return item->y() + item->height(); }
    };

    /// The items become children of `list`, which must outlive this.
    explicit RowItems(QQuickItem &list);

    /// Null where there is none.
    [[nodiscard]] const Shown *at(int row) const;
    [[nodiscard]] const Shown *around(const QQuickItem *inner) const;
    /// The uppermost that lies, by its lower edge, below `y` and whose row is still there.
    [[nodiscard]] const Shown *below(qreal y) const;

    /// Gives the row an item, if it has none: a new one by `delegate` with the properties `row`
    /// (`meetingRow`), `meetings` (`MeetingRows`) and `isCurrent`, or a spare one.
    void show(MeetingRows &rows, int row, QQmlComponent &delegate);
    /// Takes the items of all other rows away.
    void keepOnly(const std::function<bool(int row)> &isWanted);
    void place(const RowPlaces &places, qreal width);
    /// Has the items of these rows show what the rows say.
    void update(int first, int last);
    void markCurrent(const QModelIndex &current);

private:
    [[nodiscard]] QQuickItem *create(MeetingRows &rows, int row, QQmlComponent &delegate);

    QQuickItem &m_list;
    std::vector<Shown> m_shown;
    std::vector<QQuickItem *> m_spare;
};

} // namespace quorvane
