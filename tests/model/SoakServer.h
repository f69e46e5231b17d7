// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "tests/support/AnsweringPeer.h"

#include <QJsonArray>
#include <QSet>

namespace quorvane {

/// The user's own server: keeps the schedule it was given, hears of answers, and fails when told to.
class SoakServer final
{
public:
    enum class State {
        fine,
        failing,
        dropping,
        /// Takes no schedule.
        refusing,
        /// Has lost its credentials and rings no phone.
        unconfigured,
    };
    static constexpr int failingStates = 4;

    SoakServer();

    /// Whether the phone rings for `meeting` by what was uploaded last. A server that cannot be reached
    /// rings on.
    [[nodiscard]] bool rings(const QString &meeting) const;
    void forget();

    AnsweringPeer peer;
    State state = State::fine;
    /// Answered on the phone.
    QSet<QString> answered;
    /// Told of by /ack.
    QSet<QString> toldOf;

private:
    AnsweringPeer::Answer answer(const AnsweringPeer::Request &request);
    QByteArray take(const AnsweringPeer::Request &request);
    QByteArray report() const;

    QJsonArray m_events;
    QSet<QString> m_scheduled;
};

} // namespace quorvane
