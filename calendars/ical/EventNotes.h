// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QString>

#include <libical/ical.h>

namespace quorvane {

/// The event's description as plain text with real links: HTML turned into text, wrapped links opened, and
/// added on lines of their own the links that only an HTML twin of the description holds (X-ALT-DESC, or a
/// data: URI in ALTREP). Empty when there is none.
[[nodiscard]] QString eventNotes(icalcomponent *event);

} // namespace quorvane
