// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QString>
#include <QStringList>

#include <optional>
#include <vector>

namespace quorvane {

/// RFC 5545 3.8.1.11, with "no STATUS" as `none`.
enum class EventStatus { none = 0, confirmed = 1, tentative = 2, cancelled = 3 };

/// One occurrence of an event as a calendar store delivers it: recurrence expanded, time zones resolved.
struct CalendarEvent
{
    /// The event's UID (RFC 5545 3.8.4.7), the same on every machine; empty when it has none.
    QString externalIdentifier;
    /// The store's own identifier of the event; used where there is no external one.
    QString identifier;
    std::optional<QString> title;
    /// Unix time, seconds.
    double start = 0;
    double end = 0;
    bool allDay = false;
    EventStatus status = EventStatus::none;
    /// The attendee that is the user has declined (PARTSTAT=DECLINED).
    bool declinedByUser = false;
    /// The event's own link: its conference link where the calendar keeps one, else its URL property.
    std::optional<QString> url;
    std::optional<QString> location;
    /// Plain text; HTML and wrapped links are already unfolded.
    std::optional<QString> notes;
    /// Whether the three texts above have been searched for a join link, and which one they hold. Long texts
    /// take a while, so stores search them, away from the main thread.
    bool isSearched = false;
    std::optional<QString> joinURL;
    /// Identifier (`CalendarOption::id`) and display name of the event's calendar.
    QString calendarId;
    QString calendar;

    bool operator==(const CalendarEvent &) const = default;
};

/// What one reading of a store found.
struct EventReading
{
    std::vector<CalendarEvent> events;
    /// Identifiers of the calendars that could not be read this time; what was known of them still holds.
    QStringList unreadableCalendars;

    bool operator==(const EventReading &) const = default;
};

} // namespace quorvane
