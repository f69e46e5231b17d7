// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "tests/support/AnsweringPeer.h"

#include <QHash>

namespace quorvane {

/// The phone service with the phone: takes messages, repeats them, tells of answers, and fails when told to.
class SoakPhone final
{
public:
    enum class State {
        fine,
        failing,
        shuttingOut,
        dropping,
        /// Takes everything, and its answers are lost: that shows when another state comes.
        mute,
        garbled,
        /// Answers wait until another state comes.
        slow,
    };
    static constexpr int failingStates = 6;

    /// What was heard about one meeting. Messages that were taken and cancellations are numbered together.
    struct Ringing
    {
        /// Unix time of the first message that was taken; 0: none.
        double firstAt = 0;
        /// Unix time of the last message that came, taken or not.
        double lastAt = 0;
        int lastMessage = 0;
        int lastCancellation = 0;
        /// When the person answers on the phone; 0: never.
        double answerAt = 0;
    };

    /// `now` gives Unix time.
    explicit SoakPhone(std::function<double()> now);

    void set(State state);
    [[nodiscard]] State state() const { return m_state; }
    void forget();

    AnsweringPeer peer;
    QHash<QString, Ringing> ringing;
    /// How long the person needs to answer on the phone, by meeting, in seconds.
    QHash<QString, int> answersAfter;
    /// Number of messages.
    int taken = 0;

private:
    struct Message
    {
        QString meeting;
        double expiresAt;
    };

    AnsweringPeer::Answer answer(const AnsweringPeer::Request &request);
    QByteArray take(const AnsweringPeer::Request &request);
    QByteArray takeMessage(const QByteArray &form);
    QByteArray receipt(const QString &number);

    std::function<double()> m_now;
    State m_state = State::fine;
    QHash<QString, Message> m_messages;
    int m_order = 0;
};

} // namespace quorvane
