// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "alert/PanelPlacement.h"
#include "alert/Takeover.h"
#include "core/Meeting.h"

#include <QObject>

#include <functional>
#include <vector>

class QQmlEngine;
class QScreen;

namespace quorvane {

class LinkOpener;
class MeetingAlertPanel;
class MotionPreference;

/// The panels of one alert, one for each display, from their building to their end. Used for one alert only
/// and retired, never deleted at once: the person's answer comes from inside a panel's own event handler.
class PanelSet final : public QObject
{
    Q_OBJECT

public:
    PanelSet(const Meeting &event, QQmlEngine &engine, PanelPlacement &placement, LinkOpener &opener,
             const MotionPreference &motion, QObject *parent);
    ~PanelSet() override;

    [[nodiscard]] const Meeting &meeting() const { return m_takeover.meeting(); }

    /// Whether there is a panel for exactly these displays, in this order.
    [[nodiscard]] bool covers(const QList<QScreen *> &screens) const;

    /// Builds the panels for `screens`, unseen.
    void build(const QList<QScreen *> &screens);

    /// Draws the built panels once, unseen and each in a turn of the event loop of its own, so that their
    /// first real frame is a quick one.
    void drawAhead();

    /// Shows the built panels and starts their countdown.
    void show(std::function<void()> acknowledge, std::function<void()> snooze);

    /// Gives a display that has come a panel too, shown at once.
    void add(QScreen &screen);

    /// Gives up the panel of a display that goes away; the keyboard moves to another panel.
    void remove(const QScreen &screen);

    /// Takes all panels off the displays, forgets the actions, and deletes itself after the last panel.
    void retire();

    [[nodiscard]] std::vector<MeetingAlertPanel *> panels() const;

Q_SIGNALS:
    /// All panels have been painted for the first time.
    void painted();

private:
    struct Place
    {
        QScreen *screen;
        MeetingAlertPanel *panel;
        bool isPainted = false;
    };

    [[nodiscard]] Place *place(const QScreen &screen);
    void sortByDisplay();
    void showOn(QScreen &screen);
    void giveKeyboardToSomePanel();
    void notePainted(const MeetingAlertPanel &panel);
    void announceWhenPainted();
    void takeDown();
    void discard(MeetingAlertPanel &panel);
    void answer(const std::function<void()> &action) const;

    QQmlEngine &m_engine;
    PanelPlacement &m_placement;
    std::function<void()> m_acknowledge;
    std::function<void()> m_snooze;
    Takeover m_takeover;
    std::vector<Place> m_places;
    /// Handed to the placement for deletion.
    std::vector<MeetingAlertPanel *> m_discarded;
    const MeetingAlertPanel *m_keyboardPanel = nullptr;
    bool m_isShowing = false;
    bool m_isRetired = false;
    bool m_isPainted = false;
};

} // namespace quorvane
