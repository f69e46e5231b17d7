// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QElapsedTimer>

#include <functional>

namespace quorvane {

/// Tells how far something has come, but not more often than a person can see.
class ProgressPace final
{
public:
    explicit ProgressPace(std::function<void(qint64)> listener)
        : m_listener(std::move(listener))
    {
    }

    void tell(qint64 amount)
    {
        if (m_sinceLast.isValid() && !m_sinceLast.hasExpired(100))
            return;
        m_sinceLast.start();
        end(amount);
    }

    /// The last amount, which is told in any case.
    void end(qint64 amount)
    {
        if (m_listener)
            m_listener(amount);
    }

private:
    std::function<void(qint64)> m_listener;
    QElapsedTimer m_sinceLast;
};

} // namespace quorvane
