// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "ui/agenda/CalendarDots.h"
#include "ui/agenda/MeetingRow.h"

#include <QSet>

#include <vector>

namespace quorvane {

/// What the agenda's list is made of.
struct AgendaContent
{
    /// By start.
    std::vector<Meeting> events;
    /// Identifiers of those that alert.
    QSet<QString> alerting;
    CalendarDots dots;
    /// Identifier of the meeting of which the user is asked whether it shall be deleted; empty for none.
    QString askedToDelete;
};

} // namespace quorvane

/// How meetings become the agenda's rows. Pure.
namespace quorvane::AgendaRows {

/// Whether the meeting has not ended at Unix time `now`, and its times are ones that a clock can tell.
[[nodiscard]] bool isListed(const Meeting &meeting, double now);

/// A row for each meeting that is listed, by day. Of an identifier the first counts. Texts are taken over
/// from the rows in `known` that show the same meeting.
[[nodiscard]] std::vector<MeetingRow> of(const AgendaContent &content, double now,
                                         const std::vector<MeetingRow> &known = {});

/// The Unix time at which `rows`, made at `now`, become out of date by themselves.
[[nodiscard]] double validUntil(const std::vector<MeetingRow> &rows, double now);

} // namespace quorvane::AgendaRows
