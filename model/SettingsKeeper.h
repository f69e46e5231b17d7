// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "core/MeetingSelection.h"
#include "core/Result.h"
#include "core/Switch.h"
#include "model/Preferences.h"
#include "model/SettingsWatch.h"
#include "model/UserSettings.h"

#include <QObject>

#include <functional>

namespace quorvane {

/// The user's settings and choices as they are now, kept in step with the settings file, which others may
/// change too: what another copy of this program writes is told here within a second, and what is set here
/// touches nothing else in the file. Main thread only.
class SettingsKeeper final : public QObject
{
    Q_OBJECT

public:
    enum class Storage {
        file,
        /// Nothing is read or written.
        memory,
    };

    /// Of more choices than this, those of meetings that nobody knows any more are dropped when asked.
    static constexpr qsizetype pruneAbove = 2000;

    /// `preferences` outlives this.
    SettingsKeeper(Storage storage, Preferences &preferences, QObject *parent = nullptr);
    ~SettingsKeeper() override;
    Q_DISABLE_COPY_MOVE(SettingsKeeper)

    /// Reads the file, which is set aside if it cannot be used, and watches it from now on.
    void start();

    /// Reads the file again, should a change have been missed.
    void reload();

    [[nodiscard]] const UserSettings &values() const { return m_values; }
    [[nodiscard]] const MeetingChoices &choices() const { return m_choices; }

    /// Each is written when it returns. Fails as `Preferences` does, and then nothing has changed.
    Result<void> setCalendarEnabled(const QString &id, Switch enabled);
    Result<void> addCalendarFolder(const QString &folder);
    Result<void> removeCalendarFolder(const QString &folder);
    Result<void> setServerURL(const QString &url);
    Result<void> setUploadMacSnapshot(Switch enabled);
    Result<void> setSoundEnabled(Switch enabled);

    /// Holds at once; `keepChoices` writes it.
    void choose(const QString &id, Switch enabled);
    /// Writes the choices made since the last call that went well.
    Result<void> keepChoices();
    [[nodiscard]] bool areChoicesKept() const { return m_unkept.isEmpty(); }
    /// Drops the choices of all meetings but these when there are more than `pruneAbove`.
    void pruneChoices(const QSet<QString> &knownIDs);

    /// Takes these for what the file holds.
    void assume(UserSettings values, MeetingChoices choices);

Q_SIGNALS:
    /// Whoever changed them; `before` is what they were.
    void valuesChanged(const quorvane::UserSettings &before);
    void choicesChanged();
    /// The file was damaged and lies under another name now, whoever was about to write it. A new one holds
    /// what was known.
    void wasSetAside();

private:
    using Change = std::function<void(UserSettings &)>;
    using Write = std::function<Result<void>(Preferences &)>;
    Result<void> set(const Change &change, const Write &write);

    const Storage m_storage;
    Preferences &m_preferences;
    SettingsWatch m_watch;
    UserSettings m_values;
    MeetingChoices m_choices;
    /// Choices that the file does not hold yet.
    MeetingChoices m_unkept;
};

} // namespace quorvane
