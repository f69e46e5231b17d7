// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "calendars/ical/GlibPointer.h"
#include "calendars/records/NewEvent.h"

#include <libecal/libecal.h>

#include <QByteArray>

namespace quorvane::NewEventText {

/// The event as a VEVENT with its alarm, times in UTC.
[[nodiscard]] GlibPointer<ICalComponent> component(const NewEvent &event);

/// A whole calendar that holds nothing else (RFC 5545).
[[nodiscard]] QByteArray calendar(const NewEvent &event);

} // namespace quorvane::NewEventText
