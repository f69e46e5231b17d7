// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "model/Preferences.h"

#include "model/MeetingChoicesText.h"

#include <cmath>

using namespace Qt::StringLiterals;

namespace quorvane {

namespace {

const QString excludedCalendarsKey = u"excludedCalendars"_s;
const QString meetingChoicesKey = u"meetingChoices"_s;
const QString manualMeetingsKey = u"manualMeetings"_s;
const QString pendingAcksKey = u"pendingAcks"_s;
const QString uploadKey = u"uploadMacSnapshot"_s;
const QString serverURLKey = u"serverURL"_s;
const QString soundKey = u"soundEnabled"_s;
const QString calendarFoldersKey = u"calendarFolders"_s;
const QString ownAddressesKey = u"ownAddresses"_s;
const QString fantasticalFolderKey = u"fantasticalFolderBookmark"_s;
const QString checksForUpdatesKey = u"automaticallyChecksForUpdates"_s;
const QString downloadsUpdatesKey = u"automaticallyDownloadsUpdates"_s;
const QString lastUpdateCheckKey = u"lastUpdateCheck"_s;
const QString refusedUpdateKey = u"refusedUpdate"_s;
const QString announcedUpdateKey = u"announcedUpdate"_s;
const QString trayHintKey = u"trayHintShown"_s;

} // namespace

Preferences::Preferences(QString file)
    : m_file(std::move(file))
{
}

UserSettings Preferences::values() const
{
    return {
        .excludedCalendars = excludedCalendars(),
        .calendarFolders = calendarFolders(),
        .ownAddresses = ownAddresses(),
        .serverURL = serverURL(),
        .uploadMacSnapshot = uploadMacSnapshot(),
        .soundEnabled = soundEnabled(),
    };
}

QStringList Preferences::excludedCalendars() const
{
    return list(excludedCalendarsKey);
}

Result<void> Preferences::setCalendarEnabled(const QString &id, Switch enabled)
{
    return editList(excludedCalendarsKey, id, enabled == Switch::on ? Switch::off : Switch::on);
}

MeetingChoices Preferences::meetingChoices() const
{
    return MeetingChoicesText::choices(text(meetingChoicesKey)).value_or(MeetingChoices());
}

Result<void> Preferences::mergeMeetingChoices(const MeetingChoices &edits)
{
    return m_file.edit([&] {
        MeetingChoices choices = meetingChoices();
        choices.insert(edits);
        return SettingsFile::Changes{{meetingChoicesKey, MeetingChoicesText::text(choices)},
                                     {manualMeetingsKey, QVariant()}};
    });
}

Result<void> Preferences::pruneMeetingChoices(const QSet<QString> &keptIDs)
{
    return m_file.edit([&] {
        MeetingChoices choices = meetingChoices();
        choices.removeIf([&keptIDs](const auto &choice) { return !keptIDs.contains(choice.key()); });
        return SettingsFile::Changes{{meetingChoicesKey, MeetingChoicesText::text(choices)}};
    });
}

QStringList Preferences::pendingAcks() const
{
    return list(pendingAcksKey);
}

Result<void> Preferences::setPendingAcks(const QStringList &ids)
{
    return write(pendingAcksKey, ids);
}

bool Preferences::uploadMacSnapshot() const
{
    return text(uploadKey).compare("true"_L1, Qt::CaseInsensitive) == 0;
}

Result<void> Preferences::setUploadMacSnapshot(Switch enabled)
{
    return write(uploadKey, enabled == Switch::on);
}

QString Preferences::serverURL() const
{
    return text(serverURLKey);
}

Result<void> Preferences::setServerURL(const QString &url)
{
    return write(serverURLKey, url);
}

bool Preferences::soundEnabled() const
{
    return text(soundKey).compare("false"_L1, Qt::CaseInsensitive) != 0;
}

Result<void> Preferences::setSoundEnabled(Switch enabled)
{
    return write(soundKey, enabled == Switch::on);
}

QStringList Preferences::calendarFolders() const
{
    return list(calendarFoldersKey);
}

Result<void> Preferences::addCalendarFolder(const QString &folder)
{
    return editList(calendarFoldersKey, folder, Switch::on);
}

Result<void> Preferences::removeCalendarFolder(const QString &folder)
{
    return editList(calendarFoldersKey, folder, Switch::off);
}

QStringList Preferences::ownAddresses() const
{
    return list(ownAddressesKey);
}

QString Preferences::fantasticalFolder() const
{
    return text(fantasticalFolderKey);
}

Result<void> Preferences::setFantasticalFolder(const QString &folder)
{
    return write(fantasticalFolderKey, folder);
}

bool Preferences::automaticallyChecksForUpdates() const
{
    return text(checksForUpdatesKey).compare("false"_L1, Qt::CaseInsensitive) != 0;
}

Result<void> Preferences::setAutomaticallyChecksForUpdates(Switch enabled)
{
    return write(checksForUpdatesKey, enabled == Switch::on);
}

bool Preferences::automaticallyDownloadsUpdates() const
{
    return text(downloadsUpdatesKey).compare("true"_L1, Qt::CaseInsensitive) == 0;
}

Result<void> Preferences::setAutomaticallyDownloadsUpdates(Switch enabled)
{
    return write(downloadsUpdatesKey, enabled == Switch::on);
}

std::optional<double> Preferences::lastUpdateCheck() const
{
    bool isNumber = false;
    const double time = text(lastUpdateCheckKey).toDouble(&isNumber);
    return isNumber && std::isfinite(time) ? std::optional(time) : std::nullopt;
}

Result<void> Preferences::setLastUpdateCheck(double time)
{
    return write(lastUpdateCheckKey, static_cast<qint64>(time));
}

QByteArray Preferences::refusedUpdate() const
{
    return QByteArray::fromBase64(text(refusedUpdateKey).toLatin1());
}

Result<void> Preferences::setRefusedUpdate(const QByteArray &signature)
{
    return write(refusedUpdateKey, QString::fromLatin1(signature.toBase64()));
}

QString Preferences::announcedUpdate() const
{
    return text(announcedUpdateKey);
}

Result<void> Preferences::setAnnouncedUpdate(const QString &version)
{
    return write(announcedUpdateKey, version);
}

bool Preferences::trayHintShown() const
{
    return text(trayHintKey).compare("true"_L1, Qt::CaseInsensitive) == 0;
}

Result<void> Preferences::rememberTrayHint()
{
    return write(trayHintKey, true);
}

Result<void> Preferences::write(const QString &key, const QVariant &value)
{
    return m_file.edit([&] { return SettingsFile::Changes{{key, value}}; });
}

Result<void> Preferences::editList(const QString &key, const QString &entry, Switch held)
{
    return m_file.edit([&] {
        QStringList entries = list(key);
        entries.removeAll(entry);
        if (held == Switch::on)
            entries.append(entry);
        return SettingsFile::Changes{{key, entries}};
    });
}

QStringList Preferences::list(const QString &key) const
{
    QStringList values = m_file.value(key).toStringList();
    values.removeAll(QString());
    return values;
}

QString Preferences::text(const QString &key) const
{
    return m_file.value(key).toString();
}

} // namespace quorvane
