// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "ui/sheet/MonthDays.h"

namespace quorvane {

MonthDays::MonthDays(const QLocale &locale, QObject *parent)
    : QAbstractListModel(parent)
    , m_locale(locale)
{
}

void MonthDays::show(const Content &content)
{
    if (content == m_content)
        return;
    m_content = content;
    const QDate first(content.chosen.year(), content.chosen.month(), 1);
    const int daysBefore = (first.dayOfWeek() - m_locale.firstDayOfWeek() + 7) % 7;
    m_firstShown = first.addDays(-daysBefore);
    Q_EMIT dataChanged(index(0), index(count - 1));
}

int MonthDays::chosenRow() const
{
    return static_cast<int>(m_firstShown.daysTo(m_content.chosen));
}

int MonthDays::rowCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : count;
}

QVariant MonthDays::data(const QModelIndex &index, int role) const
{
    const QDate day = dayAt(index.row());
    switch (static_cast<Role>(role)) {
    case Number:
        return m_locale.toString(day.day());
    case Name:
        return m_locale.toString(day, QLocale::LongFormat);
    case Selectable:
        return day >= m_content.first && day <= m_content.last;
    case Today:
        return day == m_content.today;
    case Chosen:
        return day == m_content.chosen;
    case InMonth:
        return day.month() == m_content.chosen.month();
    }
    return {};
}

QHash<int, QByteArray> MonthDays::roleNames() const
{
    return {{Number, "number"}, {Name, "name"},     {Selectable, "selectable"},
            {Today, "today"},   {Chosen, "chosen"}, {InMonth, "inMonth"}};
}

} // namespace quorvane
