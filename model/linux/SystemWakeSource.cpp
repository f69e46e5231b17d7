// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "model/linux/SystemWakeSource.h"

#include <QDBusConnection>

#include <ctime>
#include <utility>

using namespace Qt::StringLiterals;

namespace quorvane {

namespace {

std::chrono::nanoseconds timeOf(clockid_t clock)
{
    timespec time{};
    ::clock_gettime(clock, &time);
    return std::chrono::seconds(time.tv_sec) + std::chrono::nanoseconds(time.tv_nsec);
}

std::chrono::nanoseconds timeAsleepSinceBoot()
{
    return timeOf(CLOCK_BOOTTIME) - timeOf(CLOCK_MONOTONIC);
}

} // namespace

SystemWakeSource::SystemWakeSource(const TickSource &ticks, TimeAsleep timeAsleep, QObject *parent)
    : WakeSource(parent)
    , m_timeAsleep(timeAsleep ? std::move(timeAsleep) : TimeAsleep(timeAsleepSinceBoot))
    , m_lastTimeAsleep(m_timeAsleep())
{
    connect(&ticks, &TickSource::tick, this, &SystemWakeSource::checkForSleep);
}

void SystemWakeSource::start()
{
    QDBusConnection::systemBus().connect(u"org.freedesktop.login1"_s, u"/org/freedesktop/login1"_s,
                                         u"org.freedesktop.login1.Manager"_s, u"PrepareForSleep"_s, this,
                                         SLOT(prepareForSleep(bool)));
}

void SystemWakeSource::prepareForSleep(bool sleeping)
{
    if (!sleeping)
        Q_EMIT woke();
}

void SystemWakeSource::checkForSleep()
{
    constexpr auto noticeable = std::chrono::milliseconds(500);
    const auto asleep = m_timeAsleep();
    const bool slept = asleep - m_lastTimeAsleep > noticeable;
    m_lastTimeAsleep = asleep;
    if (slept)
        Q_EMIT woke();
}

} // namespace quorvane
