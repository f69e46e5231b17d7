// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "ui/agenda/RowItems.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace quorvane {

RowItems::RowItems(QQuickItem &list)
    : m_list(list)
{
}

const RowItems::Shown *RowItems::at(int row) const
{
    const auto found =
        std::ranges::find_if(m_shown, [row](const Shown &shown) { return shown.index.row() == row; });
    return found == m_shown.end() ? nullptr : &*found;
}

const RowItems::Shown *RowItems::around(const QQuickItem *inner) const
{
    if (!inner)
        return nullptr;
    const auto found = std::ranges::find_if(m_shown, [inner](const Shown &shown) {
        return shown.item == inner || shown.item->isAncestorOf(inner);
    });
    return found == m_shown.end() ? nullptr : &*found;
}

const RowItems::Shown *RowItems::below(qreal y) const
{
    const Shown *uppermost = nullptr;
    for (const Shown &shown : m_shown) {
        const bool isBelow = shown.index.isValid() && shown.bottom() > y;
        if (isBelow && (!uppermost || shown.bottom() < uppermost->bottom()))
            uppermost = &shown;
    }
    return uppermost;
}

void RowItems::show(MeetingRows &rows, int row, QQmlComponent &delegate)
{
    if (at(row))
        return;
    QQuickItem *item = nullptr;
    if (m_spare.empty()) {
        item = create(rows, row, delegate);
    } else {
        item = m_spare.back();
        m_spare.pop_back();
        item->setProperty("row", QVariant::fromValue(rows.at(row)));
        item->setVisible(true);
    }
    if (item)
        m_shown.push_back({.index = rows.index(row), .item = item});
}

QQuickItem *RowItems::create(MeetingRows &rows, int row, QQmlComponent &delegate)
{
    const QVariantMap properties{{u"row"_s, QVariant::fromValue(rows.at(row))},
                                 {u"meetings"_s, QVariant::fromValue(&rows)},
                                 {u"isCurrent"_s, false}};
    QObject *object = delegate.createWithInitialProperties(properties, delegate.creationContext());
    auto *item = qobject_cast<QQuickItem *>(object);
    if (!item)
        return nullptr;
    item->setParent(&m_list);
    item->setParentItem(&m_list);
    return item;
}

void RowItems::keepOnly(const std::function<bool(int row)> &isWanted)
{
    const auto unwanted = std::ranges::partition(m_shown, [&isWanted](const Shown &shown) {
        return shown.index.isValid() && isWanted(shown.index.row());
    });
    for (const Shown &shown : unwanted) {
        shown.item->setVisible(false);
        m_spare.push_back(shown.item);
    }
    m_shown.erase(unwanted.begin(), unwanted.end());
}

// The items' order follows the rows', which is the order in which they are read out.
void RowItems::place(const RowPlaces &places, qreal width)
{
    std::ranges::sort(m_shown, {}, [](const Shown &shown) { return shown.index.row(); });
    const QQuickItem *above = nullptr;
    for (const Shown &shown : m_shown) {
        const int row = shown.index.row();
        if (row < 0)
            continue;
        shown.item->setPosition({0, places.top(row)});
        shown.item->setSize({width, places.bottom(row) - places.top(row)});
        if (above)
            shown.item->stackAfter(above);
        above = shown.item;
    }
}

void RowItems::update(int first, int last)
{
    for (const Shown &shown : m_shown) {
        if (shown.index.row() >= first && shown.index.row() <= last)
            shown.item->setProperty("row", shown.index.data(MeetingRows::rowRole));
    }
}

void RowItems::markCurrent(const QModelIndex &current)
{
    for (const Shown &shown : m_shown)
        shown.item->setProperty("isCurrent", shown.index == current);
}

} // namespace quorvane
