// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "core/MeetingSelection.h"
#include "core/Result.h"
#include "core/Switch.h"
#include "model/SettingsFile.h"
#include "model/UserSettings.h"

#include <QSet>
#include <QString>
#include <QStringList>

#include <optional>

namespace quorvane {

/// The user's settings by name. Every question reads the file anew when it changed; a missing or unreadable
/// value gives its default. What is set here is written when the call returns, or the call fails with
/// `std::errc::io_error` and nothing has changed. Main thread only.
class Preferences
{
public:
    /// `file` is the path of the ini file; it need not exist.
    explicit Preferences(QString file);

    [[nodiscard]] SettingsFile &file() { return m_file; }

    /// All that a user sets.
    [[nodiscard]] UserSettings values() const;

    /// Identifiers of the calendars left out of every read ("excludedCalendars").
    [[nodiscard]] QStringList excludedCalendars() const;
    [[nodiscard]] Result<void> setCalendarEnabled(const QString &id, Switch enabled);

    /// Explicit choices by meeting id ("meetingChoices", a JSON object in one text).
    [[nodiscard]] MeetingChoices meetingChoices() const;
    /// Adds `edits` to the choices that the file holds then, which another copy of this program may have
    /// changed. Also removes "manualMeetings", where the hand-added meetings once were.
    [[nodiscard]] Result<void> mergeMeetingChoices(const MeetingChoices &edits);
    /// Forgets the choices of all meetings but these.
    [[nodiscard]] Result<void> pruneMeetingChoices(const QSet<QString> &keptIDs);

    /// Meetings whose acknowledgment the user's server has not confirmed ("pendingAcks").
    [[nodiscard]] QStringList pendingAcks() const;
    [[nodiscard]] Result<void> setPendingAcks(const QStringList &ids);

    /// Whether this machine's schedule goes to the user's own server ("uploadMacSnapshot"): only if the
    /// setting says true.
    [[nodiscard]] bool uploadMacSnapshot() const;
    [[nodiscard]] Result<void> setUploadMacSnapshot(Switch enabled);

    /// Address of the user's own server ("serverURL"); empty when there is none.
    [[nodiscard]] QString serverURL() const;
    [[nodiscard]] Result<void> setServerURL(const QString &url);

    /// Whether the alert sounds ("soundEnabled"): true unless the setting says false.
    [[nodiscard]] bool soundEnabled() const;
    [[nodiscard]] Result<void> setSoundEnabled(Switch enabled);

    /// Folders of calendars beside the default one ("calendarFolders").
    [[nodiscard]] QStringList calendarFolders() const;
    [[nodiscard]] Result<void> addCalendarFolder(const QString &folder);
    [[nodiscard]] Result<void> removeCalendarFolder(const QString &folder);

    /// The user's own e-mail addresses in calendars that do not say whose they are ("ownAddresses").
    [[nodiscard]] QStringList ownAddresses() const;

    /// Folder of Fantastical's cache as the user chose it ("fantasticalFolderBookmark"); empty when none is.
    [[nodiscard]] QString fantasticalFolder() const;
    [[nodiscard]] Result<void> setFantasticalFolder(const QString &folder);

    /// Whether newer versions are looked for by themselves ("automaticallyChecksForUpdates"): true unless the
    /// setting says false.
    [[nodiscard]] bool automaticallyChecksForUpdates() const;
    [[nodiscard]] Result<void> setAutomaticallyChecksForUpdates(Switch enabled);
    /// Whether they are then fetched and installed by themselves ("automaticallyDownloadsUpdates"): only if
    /// the setting says true.
    [[nodiscard]] bool automaticallyDownloadsUpdates() const;
    [[nodiscard]] Result<void> setAutomaticallyDownloadsUpdates(Switch enabled);
    /// When the feed was last read, Unix time in seconds ("lastUpdateCheck"); absent when it never was.
    [[nodiscard]] std::optional<double> lastUpdateCheck() const;
    [[nodiscard]] Result<void> setLastUpdateCheck(double time);
    /// The signature of the update that was last fetched in vain ("refusedUpdate", in base64); empty when
    /// none was.
    [[nodiscard]] QByteArray refusedUpdate() const;
    [[nodiscard]] Result<void> setRefusedUpdate(const QByteArray &signature);
    /// The version of which the user was last told by a notification ("announcedUpdate").
    [[nodiscard]] QString announcedUpdate() const;
    [[nodiscard]] Result<void> setAnnouncedUpdate(const QString &version);

    /// Whether the user was told that this desktop has no place for a tray icon ("trayHintShown").
    [[nodiscard]] bool trayHintShown() const;
    [[nodiscard]] Result<void> rememberTrayHint();

private:
    [[nodiscard]] QStringList list(const QString &key) const;
    [[nodiscard]] QString text(const QString &key) const;
    [[nodiscard]] Result<void> write(const QString &key, const QVariant &value);
    /// Makes the file's list hold `entry`, or not.
    [[nodiscard]] Result<void> editList(const QString &key, const QString &entry, Switch held);

    SettingsFile m_file;
};

} // namespace quorvane
