// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QString>
#include <QStringList>

namespace quorvane {

/// The settings that a user changes, as they stand in the settings file at one moment.
struct UserSettings
{
    /// Identifiers of the calendars left out of every read.
    QStringList excludedCalendars;
    /// Folders of calendars that the user connected.
    QStringList calendarFolders;
    /// The user's own e-mail addresses in calendars that do not say whose they are.
    QStringList ownAddresses;
    /// Address of the user's own server; empty when there is none.
    QString serverURL;
    bool uploadMacSnapshot = false;
    bool soundEnabled = true;

    bool operator==(const UserSettings &) const = default;
};

} // namespace quorvane
