// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "core/Meeting.h"

#include <QObject>
#include <QTimer>

#include <functional>
#include <memory>
#include <optional>
#include <vector>

class QQmlEngine;
class QScreen;

namespace quorvane {

class ChimePlayer;
class DisplayWaker;
class LinkOpener;
class MeetingAlertPanel;
class MotionPreference;
class PanelPlacement;
class PanelSet;

/// What an overlay calls; everything outlives it.
struct OverlayServices
{
    PanelPlacement &placement;
    ChimePlayer &chime;
    DisplayWaker &waker;
    LinkOpener &opener;
    const MotionPreference &motion;
    /// The setting "soundEnabled", read anew before every sound.
    std::function<bool()> soundEnabled;
};

/// The full-screen alert: one panel on every display, above everything, and a sound every 10 seconds, until
/// closed. Main thread only. The overlay decides nothing: its owner shows and closes it.
class Overlay final : public QObject
{
    Q_OBJECT

public:
    explicit Overlay(OverlayServices services, QObject *parent = nullptr);
    ~Overlay() override;

    /// Shows the alert for `event` on all displays, in place of any alert that is up. The actions are handed
    /// to the panels and never called by the overlay itself. Displays that come later get a panel too.
    void show(const Meeting &event, std::function<void()> acknowledge, std::function<void()> snooze);

    /// Builds the panels for `event` ahead of time, unseen, so that `show` only has to map them. Never needed
    /// for correctness: a `show` for another meeting or other displays builds anew.
    void prepare(const Meeting &event);

    /// Removes the alert and its sound. Safe when nothing is shown.
    void close();

    /// Identifier of the meeting on screen; absent when nothing is shown.
    [[nodiscard]] const std::optional<QString> &eventID() const { return m_eventID; }

    /// The open panels in the order of the displays.
    [[nodiscard]] std::vector<MeetingAlertPanel *> panels() const;

    /// Plays the alert's sound once unless the setting forbids it.
    void playSound();

Q_SIGNALS:
    void eventIDChanged();
    /// Every panel of the alert has been painted for the first time.
    void painted();

private:
    [[nodiscard]] PanelSet *build(const Meeting &event);
    [[nodiscard]] PanelSet *takePrepared(const Meeting &event);
    void dropPrepared();
    void addDisplay(QScreen &screen);
    void removeDisplay(const QScreen &screen);

    OverlayServices m_services;
    std::unique_ptr<QQmlEngine> m_engine;
    /// The alert on screen and the one built ahead; children of the overlay, deleted later when they are done
    /// with.
    PanelSet *m_panels = nullptr;
    PanelSet *m_prepared = nullptr;
    QTimer m_soundTimer;
    QTimer m_preparedTimer;
    std::optional<QString> m_eventID;
};

} // namespace quorvane
