// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "ui/calendars/CalendarAccount.h"

namespace quorvane {

class AppModel;

/// How the calendars of all sources divide among accounts.
namespace CalendarAccounts {

/// Every account that is known, also one that fails or has no calendar: first those of the system's stores by
/// name, then those of the second source.
[[nodiscard]] std::vector<CalendarAccount> of(const AppModel &model);

} // namespace CalendarAccounts

} // namespace quorvane
