// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "alert/Overlay.h"
#include "calendars/CalendarReader.h"
#include "calendars/FantasticalAccess.h"
#include "calendars/FantasticalReader.h"
#include "model/Clock.h"
#include "model/Preferences.h"
#include "model/ProcessActivities.h"
#include "model/TickSource.h"
#include "model/WakeSource.h"
#include "network/Network.h"
#include "network/Secrets.h"

#include <QString>

namespace quorvane {

/// What the model works with. Everything outlives it.
struct AppModelServices
{
    CalendarReader &calendarReader;
    FantasticalReader &fantasticalReader;
    FantasticalAccess &fantasticalAccess;
    Secrets &secrets;
    Network &network;
    Overlay &overlay;
    Preferences &preferences;
    const Clock &clock;
    TickSource &ticks;
    WakeSource &wakes;
    ProcessActivities &activities;
    /// Path of "acknowledgments.json".
    QString ledgerFile;
};

} // namespace quorvane
