// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace quorvane {

/// The text of one .ics file, cut into its events and time zones, so that a broken event costs only itself
/// and an event that is long past is never parsed.
struct CalendarText
{
    struct Event
    {
        /// The VEVENT with the properties that are used here; alarms, attachments and the like are left out.
        std::string text;
        /// When every occurrence is known to begin and end (last day included), as YYYYMMDD; nothing when the
        /// event repeats, changes another or states no such days.
        std::optional<int> firstDay;
        std::optional<int> lastDay;
    };

    /// A physical line that is longer, in bytes, breaks the component that it stands in: the parser needs
    /// time in proportion to the square of its length.
    static constexpr std::size_t longestLine = 1'000'000;

    bool isCalendar = false;
    /// X-WR-CALNAME, unescaped; empty when there is none.
    std::string name;
    /// The address of whom the calendar belongs to by its own account (X-OWNER, or a name that is an
    /// address).
    std::string owner;
    std::vector<std::string> timeZones;
    std::vector<Event> events;
    int brokenEvents = 0;

    [[nodiscard]] static CalendarText parse(std::string_view text);
};

} // namespace quorvane
