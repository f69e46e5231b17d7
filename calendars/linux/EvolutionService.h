// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "core/Result.h"

#include <gio/gio.h>

#include <string>

namespace quorvane {

/// Makes sure that the service which knows the user's accounts runs, starting it where it is installed. Asked
/// first, since the library's own connecting neither tells a missing service from one without calendars nor
/// can be cancelled. False when there is no session bus or no such service; fails with
/// `CalendarError::timedOut` when the bus or the service does not answer, with `CalendarError::unavailable`
/// when the service cannot be started.
[[nodiscard]] Result<bool> wakeEvolutionService(GCancellable *cancellable);

/// The bus connection of the service that holds the calendars, which is another one each time that it is
/// started; empty while it does not run.
[[nodiscard]] std::string calendarServiceOwner(GCancellable *cancellable);

} // namespace quorvane
