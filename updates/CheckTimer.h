// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "updates/CheckSchedule.h"

#include <QObject>
#include <QTimer>

#include <chrono>
#include <functional>
#include <optional>

namespace quorvane {

/// Tells when to look for a newer version. It goes by the wall clock, also through sleep and when that is
/// set. Main thread only.
class CheckTimer final : public QObject
{
    Q_OBJECT

public:
    /// How often the clock is looked at: timers stand still while the machine sleeps.
    static constexpr std::chrono::milliseconds usualLook{3'600'000};

    /// `now` gives Unix time in seconds.
    CheckTimer(std::function<double()> now, CheckSchedule::Random random,
               std::chrono::milliseconds look = usualLook);

    /// Runs from now on, as `CheckSchedule` says for a feed that was last read at `lastCheck`.
    void start(std::optional<double> lastCheck);
    /// Is due in half an hour to one and a half: the feed could not be reached.
    void retryLater();
    /// Is due in a minute: a check is not allowed now.
    void retrySoon();
    void stop();
    [[nodiscard]] bool isActive() const { return m_timer.isActive(); }

Q_SIGNALS:
    /// Now; not again before one of the operations above.
    void due();

private:
    void runUntil(double time);
    void arm();
    void look();

    std::function<double()> m_now;
    CheckSchedule::Random m_random;
    std::chrono::milliseconds m_look;
    QTimer m_timer;
    double m_time = 0;
};

} // namespace quorvane
