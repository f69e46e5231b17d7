// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "ui/calendars/CalendarAccounts.h"

#include "model/AppModel.h"

#include <algorithm>

namespace quorvane::CalendarAccounts {

namespace {

enum class Source { system, fantastical };

using Accounts = std::vector<CalendarAccount>;

CalendarAccount &accountOf(Accounts &accounts, const CalendarOption &calendar, Source source)
{
    const bool isFantastical = source == Source::fantastical;
    const auto same = std::ranges::find_if(accounts, [&](const CalendarAccount &account) {
        return account.health.isFantastical == isFantastical && account.health.account == calendar.account;
    });
    if (same != accounts.end())
        return *same;
    // The second source is read as a whole, whatever accounts it has gathered.
    const auto whole = std::ranges::find_if(
        accounts, [](const CalendarAccount &account) { return account.health.isFantastical; });
    if (isFantastical && whole != accounts.end())
        return *whole;
    accounts.push_back({.health = {.account = calendar.account, .isFantastical = isFantastical}});
    return accounts.back();
}

void distribute(Accounts &accounts, const std::vector<CalendarOption> &calendars, Source source,
                const QStringList &excluded, int firstTurn)
{
    int turn = firstTurn;
    for (const CalendarOption &calendar : calendars) {
        CalendarAccount &account = accountOf(accounts, calendar, source);
        const bool isSaidAbove = account.health.account == calendar.account;
        account.calendars.push_back({.id = calendar.id,
                                     .name = calendar.name,
                                     .account = isSaidAbove ? QString() : calendar.account,
                                     .color = calendar.color.value_or(QString()),
                                     .turn = turn++,
                                     .isRead = !excluded.contains(calendar.id)});
    }
}

} // namespace

std::vector<CalendarAccount> of(const AppModel &model)
{
    Accounts accounts;
    for (const SourceHealth &health : model.sources())
        accounts.push_back({.health = health});
    const QStringList &excluded = model.excludedCalendars();
    const auto systemCount = static_cast<int>(model.calendars().size());
    distribute(accounts, model.calendars(), Source::system, excluded, 0);
    distribute(accounts, model.fantasticalCalendars(), Source::fantastical, excluded, systemCount);
    std::ranges::stable_sort(accounts, [](const CalendarAccount &left, const CalendarAccount &right) {
        if (left.health.isFantastical != right.health.isFantastical)
            return right.health.isFantastical;
        return QString::localeAwareCompare(left.health.account, right.health.account) < 0;
    });
    return accounts;
}

} // namespace quorvane::CalendarAccounts
