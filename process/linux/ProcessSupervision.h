// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "process/ProcessRunner.h"
#include "process/linux/ChildProcess.h"
#include "process/linux/InputFeed.h"
#include "process/linux/OutputDrain.h"

#include <chrono>

namespace quorvane {

/// One program from its start to its end: feeds it, takes what it says, and ends it when its time is up.
class ProcessSupervision final
{
public:
    /// Between asking an overdue program to end and killing it.
    static constexpr std::chrono::milliseconds ending{500};
    /// What a program has left behind may go on writing for so long after the program's own end.
    static constexpr std::chrono::milliseconds afterlife{1'000};

    struct Streams
    {
        InputFeed input;
        OutputDrain output;
        OutputDrain error;
    };

    ProcessSupervision(ChildProcess child, Streams streams, std::chrono::milliseconds timeLimit);

    /// Blocks until the program has ended; see `ProcessRunner::run`. Once only.
    [[nodiscard]] Result<ProcessOutcome> attend();

private:
    using Clock = std::chrono::steady_clock;
    enum class Stage { feeding, running, ending, over };

    void awaitEvent();
    void feed();
    void programEnded();
    void timeIsUp();
    void fail(std::error_code error);
    void askToEnd();
    [[nodiscard]] bool isOver() const;
    [[nodiscard]] int waitingTime() const;

    ChildProcess m_child;
    Streams m_streams;
    std::chrono::milliseconds m_timeLimit;
    Clock::time_point m_deadline = Clock::now() + m_timeLimit;
    Stage m_stage;
    bool m_hasEnded = false;
    std::error_code m_failure;
};

} // namespace quorvane
