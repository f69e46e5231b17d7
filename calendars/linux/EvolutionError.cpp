// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "calendars/linux/EvolutionError.h"

#include <algorithm>
#include <initializer_list>

namespace quorvane {

CalendarError calendarError(GlibError error)
{
    const auto isOneOf = [&error](GQuark domain, std::initializer_list<int> codes) {
        return error && error->domain == domain &&
               std::find(codes.begin(), codes.end(), error->code) != codes.end();
    };
    // "No reply" is what the bus says when the service died over a call: not a matter of time.
    if (isOneOf(G_IO_ERROR, {G_IO_ERROR_CANCELLED, G_IO_ERROR_TIMED_OUT}) ||
        isOneOf(G_DBUS_ERROR, {G_DBUS_ERROR_TIMEOUT, G_DBUS_ERROR_TIMED_OUT}))
        return CalendarError::timedOut;
    if (isOneOf(G_IO_ERROR, {G_IO_ERROR_CLOSED, G_IO_ERROR_CONNECTION_REFUSED, G_IO_ERROR_NOT_FOUND}) ||
        (error && error->domain == G_DBUS_ERROR))
        return CalendarError::unavailable;
    return CalendarError::unreadable;
}

} // namespace quorvane
