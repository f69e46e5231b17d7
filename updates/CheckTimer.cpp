// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "updates/CheckTimer.h"

#include <algorithm>

namespace quorvane {

namespace {

constexpr double minute = 60;
/// No schedule reaches further: the clock was set back.
constexpr double longestSchedule = 2 * 86'400;

} // namespace

CheckTimer::CheckTimer(std::function<double()> now, CheckSchedule::Random random,
                       std::chrono::milliseconds look)
    : m_now(std::move(now))
    , m_random(std::move(random))
    , m_look(look)
{
    m_timer.setSingleShot(true);
    m_timer.setTimerType(Qt::VeryCoarseTimer);
    connect(&m_timer, &QTimer::timeout, this, &CheckTimer::look);
}

void CheckTimer::start(std::optional<double> lastCheck)
{
    runUntil(CheckSchedule::next(lastCheck, m_now(), m_random));
}

void CheckTimer::retryLater()
{
    runUntil(m_now() + (30 + m_random(61)) * minute);
}

void CheckTimer::retrySoon()
{
    runUntil(m_now() + minute);
}

void CheckTimer::stop()
{
    m_timer.stop();
}

void CheckTimer::runUntil(double time)
{
    m_time = time;
    arm();
}

void CheckTimer::arm()
{
    const double milliseconds =
        std::clamp((m_time - m_now()) * 1000, 0.0, static_cast<double>(m_look.count()));
    m_timer.start(static_cast<int>(milliseconds));
}

void CheckTimer::look()
{
    const double left = m_time - m_now();
    if (left <= 0 || left > longestSchedule)
        Q_EMIT due();
    else
        arm();
}

} // namespace quorvane
