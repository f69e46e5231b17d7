// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "calendars/CalendarReader.h"
#include "model/FantasticalSource.h"
#include "model/SourceHealth.h"

#include <QStringList>

#include <vector>

/// The state of the calendar sources, account by account.
namespace quorvane::SourceList {

/// What the list is made of.
struct Situation
{
    std::vector<StoreState> stores;
    /// Folders that the user connected.
    QStringList folders;
    const FantasticalSource &fantastical;
    /// The second source is there or has been.
    bool isFantasticalExpected = false;
    /// A refresh is under way, and longer than usual.
    bool isRefreshSlow = false;
};

/// One entry per account, by name in the user's locale, case aside. Accounts of one name are one entry, which
/// is as well as the worst of them. A store that is not installed has none.
[[nodiscard]] std::vector<SourceHealth> of(const Situation &situation);

/// Number of the accounts that the user has to look after.
[[nodiscard]] qsizetype failing(const std::vector<SourceHealth> &sources);

} // namespace quorvane::SourceList
