// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "ui/calendars/AccountList.h"

#include "ui/calendars/AccountState.h"
#include "ui/calendars/RowChanges.h"

#include <QQmlEngine>

namespace quorvane {

namespace {

AccountList::Mood moodOf(SourceHealth::State state)
{
    switch (state) {
    case SourceHealth::State::waiting:
    case SourceHealth::State::refreshing:
        return AccountList::Mood::waiting;
    case SourceHealth::State::upToDate:
        return AccountList::Mood::good;
    case SourceHealth::State::failing:
        return AccountList::Mood::failing;
    }
    return {};
}

} // namespace

void AccountList::show(const std::vector<CalendarAccount> &accounts, const QString &fantasticalMessage,
                       double now)
{
    const int before = count();
    std::vector<Row> rows;
    for (const CalendarAccount &account : accounts) {
        const bool isFantastical = account.health.isFantastical;
        rows.push_back({.health = account.health,
                        .stateText = AccountState::text(account.health, now),
                        .message = isFantastical ? fantasticalMessage : QString(),
                        .calendars = calendarsOf(account.key())});
        rows.back().calendars->show(account.calendars);
    }
    changeRows(*this, rows);
    if (count() != before)
        Q_EMIT countChanged();
}

void AccountList::followTime(double now)
{
    for (int place = 0; place < count(); ++place) {
        Row row = m_rows[static_cast<std::size_t>(place)];
        row.stateText = AccountState::text(row.health, now);
        replace(place, row);
    }
}

int AccountList::rowCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : count();
}

QVariant AccountList::data(const QModelIndex &index, int role) const
{
    if (!index.isValid() || index.row() >= count())
        return {};
    const Row &row = m_rows[static_cast<std::size_t>(index.row())];
    switch (static_cast<Role>(role)) {
    case Name:
        return row.health.account.isEmpty() ? tr("Other calendars") : row.health.account;
    case StateText:
        return row.stateText;
    case State:
        return QVariant::fromValue(moodOf(row.health.state));
    case Folder:
        return row.health.folder;
    case Message:
        return row.message;
    case Calendars:
        return QVariant::fromValue(row.calendars.get());
    }
    return {};
}

QHash<int, QByteArray> AccountList::roleNames() const
{
    return {{Name, "name"},     {StateText, "stateText"}, {State, "mood"},
            {Folder, "folder"}, {Message, "message"},     {Calendars, "calendars"}};
}

void AccountList::takeOut(int place)
{
    const std::shared_ptr<CalendarList> leaving = m_rows[static_cast<std::size_t>(place)].calendars;
    beginRemoveRows({}, place, place);
    m_rows.erase(m_rows.begin() + place);
    endRemoveRows();
    // What shows the row looks at its calendars until it is gone itself.
    QMetaObject::invokeMethod(this, [leaving] {}, Qt::QueuedConnection);
}

void AccountList::insert(int place, const Row &row)
{
    beginInsertRows({}, place, place);
    m_rows.insert(m_rows.begin() + place, row);
    endInsertRows();
}

void AccountList::bringForward(int from, int to)
{
    beginMoveRows({}, from, from, {}, to);
    std::rotate(m_rows.begin() + to, m_rows.begin() + from, m_rows.begin() + from + 1);
    endMoveRows();
}

void AccountList::replace(int place, const Row &row)
{
    Row &present = m_rows[static_cast<std::size_t>(place)];
    if (present == row)
        return;
    present = row;
    Q_EMIT dataChanged(index(place), index(place));
}

std::shared_ptr<CalendarList> AccountList::calendarsOf(const QString &key) const
{
    const auto found = std::ranges::find(m_rows, key, &Row::key);
    if (found != m_rows.end())
        return found->calendars;
    const auto calendars = std::make_shared<CalendarList>(nullptr);
    // Or a view that has been handed the list would take it for its own.
    QQmlEngine::setObjectOwnership(calendars.get(), QQmlEngine::CppOwnership);
    return calendars;
}

} // namespace quorvane
