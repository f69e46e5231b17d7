// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "model/linux/TimerSlackActivities.h"

#include <QLoggingCategory>

#include <sys/prctl.h>

namespace quorvane {

namespace {

Q_LOGGING_CATEGORY(activityLog, "quorvane.activity", QtWarningMsg)

class TimerSlackToken final : public ActivityToken
{
public:
    TimerSlackToken() { ::prctl(PR_SET_TIMERSLACK, 1UL); }
    // Zero gives the thread its first slack back.
    ~TimerSlackToken() override { ::prctl(PR_SET_TIMERSLACK, 0UL); }
    TimerSlackToken(const TimerSlackToken &) = delete;
    TimerSlackToken &operator=(const TimerSlackToken &) = delete;
};

} // namespace

std::unique_ptr<ActivityToken> TimerSlackActivities::beginLatencyCritical(const QString &reason)
{
    qCDebug(activityLog, "Latency-critical: %s", qUtf8Printable(reason));
    return std::make_unique<TimerSlackToken>();
}

} // namespace quorvane
