// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "core/Meeting.h"

namespace quorvane {

/// A meeting of a soak's day and what has become of it. Times are Unix times; 0 means not yet.
struct SoakMeeting
{
    enum class Answer { atOnce, afterSnooze, onPhone, atServer, never };

    QString uid;
    QString id;
    double start = 0;
    Answer answer = Answer::atOnce;
    bool isInSecondSource = false;
    /// When it is answered on the phone that the server has rung.
    double atServerAt = 0;
    bool isSnoozed = false;
    bool isRungByServer = false;
    /// The keyring kept its secrets to itself for a while about when the phone was to ring.
    bool wasKeyringShut = false;
    double acknowledgedAt = 0;

    [[nodiscard]] Meeting asMeeting() const
    {
        return {.id = id,
                .title = uid,
                .start = start,
                .end = start + 1800,
                .calendar = QStringLiteral("Second"),
                .joinURL = QStringLiteral("https://zoom.us/j/1"),
                .source = Meeting::systemSource};
    }
};

} // namespace quorvane
