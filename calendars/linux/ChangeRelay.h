// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QObject>

#include <atomic>
#include <memory>

namespace quorvane {

/// Carries "something changed" from a store's worker thread to the main thread and makes one signal of a
/// burst.
class ChangeRelay final : public QObject
{
    Q_OBJECT

public:
    /// How long after the first of a burst the signal comes, in milliseconds.
    static constexpr int burstTime = 100;

    /// To be called on the main thread, where the relay lives and dies whoever lets go of it last.
    [[nodiscard]] static std::shared_ptr<ChangeRelay> create();

    /// Callable from any thread.
    void report();

Q_SIGNALS:
    void changed();

private:
    ChangeRelay() = default;

    std::atomic_bool m_isPending = false;
};

} // namespace quorvane
