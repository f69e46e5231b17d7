// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "calendars/ical/GlibPointer.h"

#include <libecal/libecal.h>

#include <string>
#include <unordered_map>

namespace quorvane {

/// Time zones made from VTIMEZONE components (RFC 5545 3.6.5). Thousands of files define the same few zones;
/// each definition is parsed and unrolled once.
class ZoneDefinitions final
{
public:
    /// Definitions that are remembered before all are forgotten again.
    static constexpr std::size_t most = 500;

    /// The zone that the text of a VTIMEZONE defines; null when it defines none. Valid until `trim`.
    [[nodiscard]] ICalTimezone *zone(const std::string &definition);

    /// Forgets everything when there is too much of it.
    void trim();

private:
    std::unordered_map<std::string, GlibPointer<ICalTimezone>> m_zones;
};

} // namespace quorvane
