// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "model/SettingsKeeper.h"

namespace quorvane {

namespace {

void hold(QStringList &list, const QString &entry, Switch held)
{
    list.removeAll(entry);
    if (held == Switch::on)
        list.append(entry);
}

} // namespace

SettingsKeeper::SettingsKeeper(Storage storage, Preferences &preferences, QObject *parent)
    : QObject(parent)
    , m_storage(storage)
    , m_preferences(preferences)
{
    connect(&m_watch, &SettingsWatch::changed, this, &SettingsKeeper::reload);
    if (m_storage == Storage::file)
        m_preferences.file().whenSetAside([this] { Q_EMIT wasSetAside(); });
}

SettingsKeeper::~SettingsKeeper()
{
    if (m_storage == Storage::file)
        m_preferences.file().whenSetAside({});
}

void SettingsKeeper::start()
{
    (void)m_preferences.file().edit([] { return SettingsFile::Changes(); }); // mends it
    reload();
    m_watch.start(m_preferences.file().path());
}

// A file that cannot be used says nothing, so what it said before holds until it is written anew.
void SettingsKeeper::reload()
{
    if (m_storage == Storage::memory || !m_preferences.file().remember())
        return;
    MeetingChoices choices = m_preferences.meetingChoices();
    choices.insert(m_unkept);
    assume(m_preferences.values(), choices);
}

// By value: callers hand in what is held here.
void SettingsKeeper::assume(UserSettings values, MeetingChoices choices)
{
    const UserSettings before = std::exchange(m_values, std::move(values));
    const bool areOthers = m_choices != choices;
    m_choices = std::move(choices);
    if (before != m_values)
        Q_EMIT valuesChanged(before);
    if (areOthers)
        Q_EMIT choicesChanged();
}

Result<void> SettingsKeeper::set(const Change &change, const Write &write)
{
    if (m_storage == Storage::memory) {
        UserSettings values = m_values;
        change(values);
        assume(values, m_choices);
        return {};
    }
    const Result<void> written = write(m_preferences);
    reload();
    return written;
}

Result<void> SettingsKeeper::setCalendarEnabled(const QString &id, Switch enabled)
{
    return set(
        [&](UserSettings &values) {
            hold(values.excludedCalendars, id, enabled == Switch::on ? Switch::off : Switch::on);
        },
        [&](Preferences &preferences) { return preferences.setCalendarEnabled(id, enabled); });
}

Result<void> SettingsKeeper::addCalendarFolder(const QString &folder)
{
    return set([&](UserSettings &values) { hold(values.calendarFolders, folder, Switch::on); },
               [&](Preferences &preferences) { return preferences.addCalendarFolder(folder); });
}

Result<void> SettingsKeeper::removeCalendarFolder(const QString &folder)
{
    return set([&](UserSettings &values) { hold(values.calendarFolders, folder, Switch::off); },
               [&](Preferences &preferences) { return preferences.removeCalendarFolder(folder); });
}

Result<void> SettingsKeeper::setServerURL(const QString &url)
{
    return set([&](UserSettings &values) { values.serverURL = url; },
               [&](Preferences &preferences) { return preferences.setServerURL(url); });
}

Result<void> SettingsKeeper::setUploadMacSnapshot(Switch enabled)
{
    return set([&](UserSettings &values) { values.uploadMacSnapshot = enabled == Switch::on; },
               [&](Preferences &preferences) { return preferences.setUploadMacSnapshot(enabled); });
}

Result<void> SettingsKeeper::setSoundEnabled(Switch enabled)
{
    return set([&](UserSettings &values) { values.soundEnabled = enabled == Switch::on; },
               [&](Preferences &preferences) { return preferences.setSoundEnabled(enabled); });
}

void SettingsKeeper::choose(const QString &id, Switch enabled)
{
    if (m_storage == Storage::file)
        m_unkept.insert(id, enabled == Switch::on);
    MeetingChoices choices = m_choices;
    choices.insert(id, enabled == Switch::on);
    assume(m_values, choices);
}

Result<void> SettingsKeeper::keepChoices()
{
    if (m_storage == Storage::memory)
        return {};
    const MeetingChoices edits = m_unkept;
    const Result<void> written = m_preferences.mergeMeetingChoices(edits);
    if (written)
        m_unkept.clear();
    reload();
    return written;
}

void SettingsKeeper::pruneChoices(const QSet<QString> &knownIDs)
{
    if (m_storage == Storage::memory || m_choices.size() <= pruneAbove)
        return;
    (void)m_preferences.pruneMeetingChoices(knownIDs);
    reload();
}

} // namespace quorvane
