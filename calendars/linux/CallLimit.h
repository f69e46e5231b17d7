// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "calendars/ical/GlibPointer.h"

#include <gio/gio.h>

#include <chrono>
#include <condition_variable>
#include <functional>
#include <mutex>
#include <stop_token>
#include <thread>

namespace quorvane {

/// A cancellable for one blocking call, that is cancelled when its time is over or when `stop` is requested.
class CallLimit final
{
public:
    CallLimit(std::chrono::milliseconds time, const std::stop_token &stop);

    [[nodiscard]] GCancellable *cancellable() const { return m_cancellable.get(); }

private:
    void wait(const std::stop_token &end, std::chrono::milliseconds time);

    GlibPointer<GCancellable> m_cancellable;
    std::mutex m_mutex;
    std::condition_variable_any m_ended;
    std::jthread m_timer;
    std::stop_callback<std::function<void()>> m_onStop;
};

} // namespace quorvane
