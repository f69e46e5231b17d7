// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "ui/calendars/CalendarList.h"

#include "ui/calendars/RowChanges.h"

namespace quorvane {

void CalendarList::show(const std::vector<CalendarRow> &rows)
{
    const int before = count();
    changeRows(*this, rows);
    if (count() != before)
        Q_EMIT countChanged();
}

int CalendarList::rowCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : count();
}

QVariant CalendarList::data(const QModelIndex &index, int role) const
{
    if (!index.isValid() || index.row() >= count())
        return {};
    const CalendarRow &row = m_rows[static_cast<std::size_t>(index.row())];
    switch (static_cast<Role>(role)) {
    case Id:
        return row.id;
    case Name:
        return row.name;
    case FullName:
        return row.account.isEmpty() ? row.name : tr("%1, %2").arg(row.name, row.account);
    case Color:
        return row.color;
    case Turn:
        return row.turn;
    case IsRead:
        return row.isRead;
    }
    return {};
}

QHash<int, QByteArray> CalendarList::roleNames() const
{
    return {{Id, "calendarId"},   {Name, "name"}, {FullName, "fullName"},
            {Color, "colorText"}, {Turn, "turn"}, {IsRead, "isRead"}};
}

void CalendarList::takeOut(int place)
{
    beginRemoveRows({}, place, place);
    m_rows.erase(m_rows.begin() + place);
    endRemoveRows();
}

void CalendarList::insert(int place, const CalendarRow &row)
{
    beginInsertRows({}, place, place);
    m_rows.insert(m_rows.begin() + place, row);
    endInsertRows();
}

void CalendarList::bringForward(int from, int to)
{
    beginMoveRows({}, from, from, {}, to);
    std::rotate(m_rows.begin() + to, m_rows.begin() + from, m_rows.begin() + from + 1);
    endMoveRows();
}

void CalendarList::replace(int place, const CalendarRow &row)
{
    CalendarRow &present = m_rows[static_cast<std::size_t>(place)];
    if (present == row)
        return;
    present = row;
    Q_EMIT dataChanged(index(place), index(place));
}

} // namespace quorvane
