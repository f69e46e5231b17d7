// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "commands/PrintLine.h"

#include <QCoroTask>

namespace quorvane {

class CalendarReader;

/// Whether calendars may be read, as the commands about calendars ask before anything else.
namespace CalendarAccess {

/// Asks the stores: there is access when one of them answers. `reader` must outlive the task.
[[nodiscard]] QCoro::Task<bool> isAllowed(CalendarReader &reader);

/// Tells what to do about it; gives the `ExitStatus`.
[[nodiscard]] int refuse(const PrintLine &print);

} // namespace CalendarAccess
} // namespace quorvane
