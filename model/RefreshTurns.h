// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QCoroTask>
#include <QPromise>
#include <QTimer>

#include <memory>

namespace quorvane {

/// Keeps count of the refreshes, of which one at most is under way. Main thread only.
class RefreshTurns final
{
public:
    /// A refresh that takes longer than this, in milliseconds, is worth telling of: most are over before
    /// anybody could read that there is one.
    static constexpr int slowAfter = 400;

    RefreshTurns();

    void begin();
    void end();

    [[nodiscard]] bool isRunning() const { return m_promise != nullptr; }
    /// Number of refreshes that have begun.
    [[nodiscard]] int count() const { return m_count; }
    [[nodiscard]] bool isSlow() const { return isRunning() && !m_patience.isActive(); }
    /// Runs out when a refresh becomes slow.
    [[nodiscard]] QTimer &patience() { return m_patience; }

    /// Waits for the end of the one under way, also if it is cut off.
    [[nodiscard]] QCoro::Task<> ended() const;

private:
    int m_count = 0;
    QTimer m_patience;
    std::unique_ptr<QPromise<void>> m_promise;
};

} // namespace quorvane
