// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "model/Preferences.h"

#include "core/StrictJson.h"

#include <QSettings>

using namespace Qt::StringLiterals;

namespace quorvane {

namespace {

const QString fantasticalFolderKey = u"fantasticalFolderBookmark"_s;

} // namespace

Preferences::Preferences(QString file)
    : m_file(std::move(file))
{
}

QStringList Preferences::excludedCalendars() const
{
    return list(u"excludedCalendars"_s);
}

MeetingChoices Preferences::meetingChoices() const
{
    MeetingChoices choices;
    const auto object = jsonObject(text(u"meetingChoices"_s).toUtf8());
    if (!object)
        return choices;
    for (auto entry = object->begin(); entry != object->end(); ++entry) {
        if (!entry->isBool())
            return {};
        choices.insert(entry.key(), entry->toBool());
    }
    return choices;
}

QStringList Preferences::pendingAcks() const
{
    return list(u"pendingAcks"_s);
}

QString Preferences::serverURL() const
{
    return text(u"serverURL"_s);
}

bool Preferences::soundEnabled() const
{
    return text(u"soundEnabled"_s).compare("false"_L1, Qt::CaseInsensitive) != 0;
}

QStringList Preferences::calendarFolders() const
{
    return list(u"calendarFolders"_s);
}

QStringList Preferences::ownAddresses() const
{
    return list(u"ownAddresses"_s);
}

QString Preferences::fantasticalFolder() const
{
    return text(fantasticalFolderKey);
}

Result<void> Preferences::setFantasticalFolder(const QString &folder)
{
    return write(fantasticalFolderKey, folder);
}

Result<void> Preferences::setPendingAcks(const QStringList &ids)
{
    return write(u"pendingAcks"_s, ids);
}

bool Preferences::uploadMacSnapshot() const
{
    return text(u"uploadMacSnapshot"_s).compare("true"_L1, Qt::CaseInsensitive) == 0;
}

Result<void> Preferences::write(const QString &key, const QVariant &value)
{
    QSettings settings(m_file, QSettings::IniFormat);
    const QVariant before = settings.value(key);
    settings.setValue(key, value);
    settings.sync();
    if (settings.status() == QSettings::NoError)
        return {};
    // What could not be written would be remembered, and written at another time.
    settings.setValue(key, before);
    return Failure(std::make_error_code(std::errc::io_error));
}

QStringList Preferences::list(const QString &key) const
{
    const QSettings settings(m_file, QSettings::IniFormat);
    QStringList values = settings.value(key).toStringList();
    values.removeAll(QString());
    return values;
}

QString Preferences::text(const QString &key) const
{
    const QSettings settings(m_file, QSettings::IniFormat);
    return settings.value(key).toString();
}

} // namespace quorvane
