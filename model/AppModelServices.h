// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "alert/LinkOpener.h"
#include "alert/Overlay.h"
#include "calendars/CalendarReader.h"
#include "calendars/FantasticalAccess.h"
#include "calendars/FantasticalReader.h"
#include "calendars/FolderChooser.h"
#include "model/Clock.h"
#include "model/Preferences.h"
#include "model/ProcessActivities.h"
#include "model/TickSource.h"
#include "model/WakeSource.h"
#include "network/Network.h"
#include "network/Secrets.h"

#include <QString>
#include <QStringList>

#include <functional>

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
    LinkOpener &opener;
    FolderChooser &folderChooser;
    /// Has the calendars in `folders`, beside the program's own one, read from now on, where `ownAddresses`
    /// are the user's. Returns at once; the reading follows by the reader's `changed`.
    std::function<void(const QStringList &folders, const QStringList &ownAddresses)> useCalendarFolders;
};

} // namespace quorvane
