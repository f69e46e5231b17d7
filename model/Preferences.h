// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "core/MeetingSelection.h"
#include "core/Result.h"

#include <QString>
#include <QStringList>
#include <QVariant>

namespace quorvane {

/// The user's settings, an ini file that other programs and a second copy of this one may change at any time:
/// every question reads the file anew when it changed. A missing or unreadable value gives its default. Main
/// thread only.
class Preferences
{
public:
    /// `file` is the path of the ini file; it need not exist.
    explicit Preferences(QString file);

    /// Identifiers of the calendars left out of every read ("excludedCalendars").
    [[nodiscard]] QStringList excludedCalendars() const;

    /// Explicit choices by meeting id ("meetingChoices", a JSON object in one text).
    [[nodiscard]] MeetingChoices meetingChoices() const;

    /// Meetings whose acknowledgment the user's server has not confirmed ("pendingAcks").
    [[nodiscard]] QStringList pendingAcks() const;

    /// Fails as `setFantasticalFolder` does.
    [[nodiscard]] Result<void> setPendingAcks(const QStringList &ids);

    /// Whether this machine's schedule goes to the user's own server ("uploadMacSnapshot"): only if the
    /// setting says true.
    [[nodiscard]] bool uploadMacSnapshot() const;

    /// Address of the user's own server ("serverURL"); empty when there is none.
    [[nodiscard]] QString serverURL() const;

    /// Whether the alert sounds ("soundEnabled"): true unless the setting says false.
    [[nodiscard]] bool soundEnabled() const;

    /// Folders of calendars beside the default one ("calendarFolders").
    [[nodiscard]] QStringList calendarFolders() const;

    /// The user's own e-mail addresses in calendars that do not say whose they are ("ownAddresses").
    [[nodiscard]] QStringList ownAddresses() const;

    /// Folder of Fantastical's cache as the user chose it ("fantasticalFolderBookmark"); empty when none is.
    [[nodiscard]] QString fantasticalFolder() const;
    /// Written when it returns. Other settings stay as they are, comments in the file do not. Fails with
    /// `std::errc::io_error`, and the next question for the folder tells the old one.
    [[nodiscard]] Result<void> setFantasticalFolder(const QString &folder);

private:
    [[nodiscard]] QStringList list(const QString &key) const;
    [[nodiscard]] QString text(const QString &key) const;
    [[nodiscard]] Result<void> write(const QString &key, const QVariant &value);

    QString m_file;
};

} // namespace quorvane
