// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "calendars/CalendarError.h"
#include "calendars/ical/GlibPointer.h"

#include <gio/gio.h>

namespace quorvane {

/// Takes over an error of a call to Evolution Data Server and tells what it means for the store.
[[nodiscard]] CalendarError calendarError(GlibError error);

} // namespace quorvane
