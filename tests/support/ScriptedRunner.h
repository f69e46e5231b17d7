// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "calendars/records/FantasticalSnapshot.h"
#include "process/ProcessRunner.h"

#include <condition_variable>
#include <mutex>

namespace quorvane {

/// Stands for the reader executable: ends as the test says, when the test says.
class ScriptedRunner final : public ProcessRunner
{
public:
    [[nodiscard]] Result<ProcessOutcome> run(const ProcessRequest &request) const override
    {
        std::unique_lock lock(m_mutex);
        ++m_runs;
        m_lastInput = request.input;
        m_released.wait(lock, [this] { return !m_isHeld; });
        return m_outcome;
    }

    void answer(const Result<ProcessOutcome> &outcome)
    {
        const std::scoped_lock lock(m_mutex);
        m_outcome = outcome;
    }
    void answer(const FantasticalSnapshot &snapshot)
    {
        answer(ProcessOutcome{.exitStatus = 0, .output = snapshot.toJson()});
    }

    /// Lets runs hang until `release`.
    void hold()
    {
        const std::scoped_lock lock(m_mutex);
        m_isHeld = true;
    }
    void release()
    {
        {
            const std::scoped_lock lock(m_mutex);
            m_isHeld = false;
        }
        m_released.notify_all();
    }

    [[nodiscard]] int runs() const
    {
        const std::scoped_lock lock(m_mutex);
        return m_runs;
    }
    [[nodiscard]] QByteArray lastInput() const
    {
        const std::scoped_lock lock(m_mutex);
        return m_lastInput;
    }

private:
    mutable std::mutex m_mutex;
    mutable std::condition_variable m_released;
    Result<ProcessOutcome> m_outcome = ProcessOutcome{.exitStatus = 1};
    mutable int m_runs = 0;
    mutable QByteArray m_lastInput;
    bool m_isHeld = false;
};

} // namespace quorvane
