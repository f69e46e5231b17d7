// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "model/SourceList.h"

#include "core/UnixTime.h"

#include <QFileInfo>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace quorvane::SourceList {

namespace {

using State = SourceHealth::State;

std::optional<QDateTime> dateOf(const std::optional<double> &time)
{
    return time ? std::optional(UnixTime::moment(*time)) : std::nullopt;
}

bool isBelow(const QString &calendarId, const QString &folder)
{
    const QString prefix = u"folder:"_s + folder;
    return calendarId == prefix || calendarId.startsWith(prefix.endsWith(u'/') ? prefix : prefix + u'/');
}

State stateOf(const StoreState &store, bool isReadable, bool isRefreshSlow)
{
    if (store.isBusy && isRefreshSlow)
        return State::refreshing;
    return isReadable ? State::upToDate : State::failing;
}

void addTo(std::vector<SourceHealth> &list, const SourceHealth &entry)
{
    const auto same = std::ranges::find_if(list, [&entry](const SourceHealth &known) {
        return known.account == entry.account && known.isFantastical == entry.isFantastical;
    });
    if (same == list.end()) {
        list.push_back(entry);
        return;
    }
    same->state = std::max(same->state, entry.state);
    if (!entry.lastRead || (same->lastRead && *entry.lastRead < *same->lastRead))
        same->lastRead = entry.lastRead;
    if (same->folder.isEmpty())
        same->folder = entry.folder;
}

void addStore(std::vector<SourceHealth> &list, const StoreState &store, const Situation &situation)
{
    const bool failsWhole = store.problem && store.unreadableCalendars.isEmpty();
    for (const CalendarOption &calendar : store.calendars) {
        const bool isReadable = !failsWhole && !store.unreadableCalendars.contains(calendar.id);
        SourceHealth entry{.account = calendar.account.isEmpty() ? store.name : calendar.account,
                           .state = stateOf(store, isReadable, situation.isRefreshSlow),
                           .lastRead = dateOf(store.lastRead(calendar.account))};
        const auto folder = std::ranges::find_if(
            situation.folders, [&](const QString &connected) { return isBelow(calendar.id, connected); });
        if (folder != situation.folders.end())
            entry.folder = *folder;
        addTo(list, entry);
    }
    if (store.calendars.empty() && store.problem && !store.isAbsent)
        addTo(list, {.account = store.name, .state = stateOf(store, false, situation.isRefreshSlow)});
}

SourceHealth entryOf(const FantasticalSource &source, bool isRefreshSlow)
{
    SourceHealth entry{
        .account = u"Fantastical"_s, .lastRead = dateOf(source.lastRead()), .isFantastical = true};
    if (source.isBusy() && isRefreshSlow)
        entry.state = State::refreshing;
    else if (source.wasRead())
        entry.state = source.isConnected() ? State::upToDate : State::failing;
    return entry;
}

} // namespace

std::vector<SourceHealth> of(const Situation &situation)
{
    std::vector<SourceHealth> list;
    for (const StoreState &store : situation.stores)
        addStore(list, store, situation);
    for (const QString &folder : situation.folders) {
        if (std::ranges::find(list, folder, &SourceHealth::folder) == list.end())
            list.push_back({.account = QFileInfo(folder).fileName(), .folder = folder});
    }
    if (situation.isFantasticalExpected)
        list.push_back(entryOf(situation.fantastical, situation.isRefreshSlow));
    std::ranges::stable_sort(list, [](const SourceHealth &a, const SourceHealth &b) {
        return a.account.toCaseFolded().localeAwareCompare(b.account.toCaseFolded()) < 0;
    });
    return list;
}

qsizetype failing(const std::vector<SourceHealth> &sources)
{
    return std::ranges::count(sources, State::failing, &SourceHealth::state);
}

} // namespace quorvane::SourceList
