// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "process/linux/ProcessSupervision.h"

#include <algorithm>
#include <array>
#include <csignal>

#include <poll.h>

namespace quorvane {

ProcessSupervision::ProcessSupervision(ChildProcess child, Streams streams,
                                       std::chrono::milliseconds timeLimit)
    : m_child(std::move(child))
    , m_streams(std::move(streams))
    , m_timeLimit(timeLimit)
    , m_stage(m_streams.input.isClosed() ? Stage::running : Stage::feeding)
{
}

Result<ProcessOutcome> ProcessSupervision::attend()
{
    while (!isOver()) {
        awaitEvent();
        if (Clock::now() >= m_deadline)
            timeIsUp();
    }
    const Result<int> status = m_child.reap();
    if (m_failure)
        return Failure(m_failure);
    if (!status)
        return Failure(status.error());
    return ProcessOutcome{.exitStatus = *status,
                          .output = m_streams.output.takeBytes(),
                          .isOutputCut = m_streams.output.isCut(),
                          .errorOutput = m_streams.error.takeBytes()};
}

bool ProcessSupervision::isOver() const
{
    const bool isSilent =
        m_streams.input.isClosed() && m_streams.output.isClosed() && m_streams.error.isClosed();
    return m_stage == Stage::over || (m_hasEnded && (isSilent || m_failure));
}

void ProcessSupervision::awaitEvent()
{
    std::array<pollfd, 4> files{{{m_streams.input.descriptor(), POLLOUT, 0},
                                 {m_streams.output.descriptor(), POLLIN, 0},
                                 {m_streams.error.descriptor(), POLLIN, 0},
                                 {m_hasEnded ? -1 : m_child.endDescriptor(), POLLIN, 0}}};
    if (::poll(files.data(), files.size(), waitingTime()) <= 0)
        return;
    const auto &[input, output, error, end] = files;
    if (input.revents != 0)
        feed();
    if (output.revents != 0)
        m_streams.output.readSome();
    if (error.revents != 0)
        m_streams.error.readSome();
    if (end.revents != 0)
        programEnded();
}

int ProcessSupervision::waitingTime() const
{
    const auto left = std::chrono::ceil<std::chrono::milliseconds>(m_deadline - Clock::now()).count();
    return static_cast<int>(std::clamp<decltype(left)>(left, 0, 60'000));
}

void ProcessSupervision::feed()
{
    if (const std::error_code error = m_streams.input.writeSome())
        return fail(error);
    if (!m_streams.input.isClosed())
        return;
    m_stage = Stage::running;
    if (!m_hasEnded)
        m_deadline = Clock::now() + m_timeLimit;
}

void ProcessSupervision::programEnded()
{
    m_hasEnded = true;
    m_deadline = std::min(m_deadline, Clock::now() + afterlife);
}

void ProcessSupervision::timeIsUp()
{
    if (m_stage == Stage::feeding)
        fail(std::make_error_code(std::errc::timed_out));
    else if (m_hasEnded || m_stage == Stage::ending)
        m_stage = Stage::over;
    else
        askToEnd();
}

void ProcessSupervision::fail(std::error_code error)
{
    m_failure = error;
    m_streams.input.close();
    askToEnd();
}

void ProcessSupervision::askToEnd()
{
    m_child.signalGroup(SIGTERM);
    m_stage = Stage::ending;
    m_deadline = Clock::now() + ending;
}

} // namespace quorvane
