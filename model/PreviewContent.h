// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "calendars/records/CalendarOption.h"
#include "core/AlertRecord.h"
#include "core/MeetingSelection.h"
#include "model/CredentialHints.h"
#include "model/NoticeKind.h"
#include "model/PhoneHealth.h"
#include "model/SourceHealth.h"
#include "model/UserSettings.h"

#include <optional>
#include <vector>

namespace quorvane {

/// What a model in preview mode shows in place of what would be read.
struct PreviewContent
{
    std::vector<Meeting> meetings;
    std::vector<Meeting> calendarEvents;
    std::vector<Meeting> manualMeetings;
    MeetingChoices selectionOverrides;
    AlertRecords records;
    /// Those of the system's stores, and those of the second source.
    std::vector<CalendarOption> calendars;
    std::vector<CalendarOption> fantasticalCalendars;
    std::vector<SourceHealth> sources;
    bool calendarAccess = true;
    bool fantasticalConnected = false;
    bool isRefreshing = false;
    std::optional<QDateTime> lastRefresh;
    QString status;
    QString fantasticalStatus;
    QString cloudStatus;
    bool serverConfigured = false;
    bool scheduleSynced = false;
    std::optional<QString> notice;
    NoticeKind noticeKind = NoticeKind::problem;
    std::optional<QDateTime> pausedUntil;
    PhoneHealth phoneHealth;
    UserSettings settings;
    CredentialHints credentialHints;
};

} // namespace quorvane
