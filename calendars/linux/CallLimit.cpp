// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "calendars/linux/CallLimit.h"

namespace quorvane {

CallLimit::CallLimit(std::chrono::milliseconds time, const std::stop_token &stop)
    : m_cancellable(g_cancellable_new())
    , m_timer([this, time](const std::stop_token &end) { wait(end, time); })
    , m_onStop(stop, [this] { g_cancellable_cancel(m_cancellable.get()); })
{
}

void CallLimit::wait(const std::stop_token &end, std::chrono::milliseconds time)
{
    std::unique_lock lock(m_mutex);
    m_ended.wait_for(lock, end, time, [] { return false; });
    if (!end.stop_requested())
        g_cancellable_cancel(m_cancellable.get());
}

} // namespace quorvane
