// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "alert/linux/SessionLock.h"

#include <QObject>
#include <QTimer>

#include <functional>

namespace quorvane {

/// Fetches the keyboard back to an alert's panels when another program takes it. Gives up after a number of
/// attempts, and leaves a locked session alone, so as never to fight another program for ever.
class FocusGuard final : public QObject
{
    Q_OBJECT

public:
    /// `reclaim` asks for the keyboard; it is called on the main thread.
    explicit FocusGuard(std::function<void()> reclaim, QObject *parent = nullptr);

    /// Begins to watch, with all attempts ahead.
    void start();
    void stop();

private:
    void check();

    std::function<void()> m_reclaim;
    SessionLock m_lock;
    QTimer m_checkTimer;
    int m_attemptsLeft = 0;
};

} // namespace quorvane
