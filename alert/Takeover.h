// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "core/Meeting.h"

#include <QObject>
#include <QString>

#include <functional>

namespace quorvane {

class LinkOpener;
class MotionPreference;

/// What every panel of one alert shows and offers: the countdown of `event`, its texts, and the three responses.
/// One instance per alert, shared by its panels. Everything on screen is a function of the whole seconds until the
/// start, recomputed from the clock at each tick, so that a late or woken view is right at once.
class Takeover final : public QObject
{
    Q_OBJECT
    // Q_PROPERTYs for the views: title, timeRange, secondsLeft, clockText, caption, headline, dialLabel, progress,
    // hasJoinLink, reduceMotion, …

public:
    Takeover(Meeting event, std::function<void()> acknowledge, std::function<void()> snooze, LinkOpener &opener,
             const MotionPreference &motion, QObject *parent = nullptr);

    [[nodiscard]] const Meeting &event() const { return m_event; }

    /// Starts the once-per-second redraw. Before that the view shows the state of the moment of construction.
    void start();

    /// Opens the join link and acknowledges once the desktop has taken it; a failed open leaves the alert up.
    Q_INVOKABLE void join();
    Q_INVOKABLE void acknowledge();
    Q_INVOKABLE void snooze();

private:
    Meeting m_event;
};

} // namespace quorvane
