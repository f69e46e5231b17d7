// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QStringList>

#include <libical/ical.h>

namespace quorvane {

/// The links to the event's conference that its calendar keeps in properties made for it, wrapped links
/// opened, the most telling first: CONFERENCE (RFC 7986 5.11, those with pictures before those with sound
/// only), then Google's, Microsoft's and other programs' own X- properties.
[[nodiscard]] QStringList conferenceLinks(icalcomponent *event);

} // namespace quorvane
