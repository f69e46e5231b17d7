// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "ui/tray/MenuEntry.h"
#include "ui/tray/TrayState.h"

#include <QObject>

namespace quorvane {

class AppModel;

/// What the tray shows of the model, as values, and what its menu's commands do. It follows the model and the
/// time. Main thread only.
class MenuContent final : public QObject
{
    Q_OBJECT

public:
    /// A meeting's title is cut to this many characters as people count them, the last one an ellipsis.
    static constexpr qsizetype longestTitle = 60;

    /// `model` must outlive this.
    explicit MenuContent(AppModel &model, QObject *parent = nullptr);

    /// From top to bottom.
    [[nodiscard]] const MenuEntries &entries() const { return m_shown.entries; }
    /// A pause comes before what needs the user: calendars that fail, a phone that could not be told, a
    /// server of the user's that was given up with meetings ahead.
    [[nodiscard]] TrayState state() const { return m_shown.state; }
    /// The program and how it is doing, in one line, without the ampersands that panels take for
    /// markup.
    [[nodiscard]] const QString &toolTip() const { return m_shown.toolTip; }

    /// Does it, or has it done by whoever listens to the signal of its name. Waits for nothing.
    void perform(MenuCommand command);

Q_SIGNALS:
    /// Something that is seen has changed.
    void changed();
    void openRequested();
    void checkForUpdatesRequested();
    void quitRequested();

private:
    struct Shown
    {
        MenuEntries entries;
        QString toolTip;
        TrayState state = TrayState::normal;

        bool operator==(const Shown &) const = default;
    };

    void update();
    [[nodiscard]] Shown current() const;
    [[nodiscard]] MenuEntries currentEntries() const;
    [[nodiscard]] TrayState currentState() const;

    AppModel &m_model;
    Shown m_shown;
};

} // namespace quorvane
