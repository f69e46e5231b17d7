// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "model/linux/SecondTicker.h"

#include <QtGlobal>

#include <cerrno>
#include <cstdint>
#include <cstring>

#include <sys/timerfd.h>
#include <unistd.h>

namespace quorvane {

SecondTicker::SecondTicker(QObject *parent)
    : TickSource(parent)
    , m_timer(::timerfd_create(CLOCK_REALTIME, TFD_NONBLOCK | TFD_CLOEXEC))
{
    if (m_timer < 0)
        qFatal("No kernel timer to be had: %s", std::strerror(errno));
}

SecondTicker::~SecondTicker()
{
    m_notifier.reset();
    ::close(m_timer);
}

void SecondTicker::start()
{
    arm();
    m_notifier = std::make_unique<QSocketNotifier>(m_timer, QSocketNotifier::Read);
    connect(m_notifier.get(), &QSocketNotifier::activated, this, &SecondTicker::readTimer);
}

void SecondTicker::arm()
{
    timespec now{};
    ::clock_gettime(CLOCK_REALTIME, &now);
    const itimerspec everySecond{.it_interval = {.tv_sec = 1, .tv_nsec = 0},
                                 .it_value = {.tv_sec = now.tv_sec + 1, .tv_nsec = 0}};
    ::timerfd_settime(m_timer, TFD_TIMER_ABSTIME | TFD_TIMER_CANCEL_ON_SET, &everySecond, nullptr);
}

void SecondTicker::readTimer()
{
    std::uint64_t expirations = 0;
    const auto size = ::read(m_timer, &expirations, sizeof expirations);
    if (size < 0 && errno == ECANCELED) {
        arm();
        Q_EMIT clockChanged();
    } else if (size < 0) {
        return;
    }
    Q_EMIT tick();
}

} // namespace quorvane
