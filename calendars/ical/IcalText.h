// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QString>

#include <libical/ical.h>

#include <optional>

namespace quorvane {

/// The text of a property's value, unescaped; invalid UTF-8 becomes U+FFFD. Backslashes before commas and
/// semicolons of a link, which some programs write there too, are removed (a link holds none, RFC 3986).
[[nodiscard]] QString icalText(icalproperty *property);

/// The text of the first property `kind` of `component`; nothing when there is none or it is blank.
[[nodiscard]] std::optional<QString> icalText(icalcomponent *component, icalproperty_kind kind);

} // namespace quorvane
