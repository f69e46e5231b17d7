// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "alert/linux/SessionLock.h"
#include "alert/linux/ShellOverview.h"

#include <QObject>
#include <QTimer>

#include <functional>

namespace quorvane {

/// Fetches the keyboard back to an alert's panels when another program, or an overview of windows, takes it.
/// After a number of quick attempts it goes on slowly, so as never to fight another program, and it leaves a
/// locked session alone.
class FocusGuard final : public QObject
{
    Q_OBJECT

public:
    /// `reclaim` asks for the keyboard; it is called on the main thread.
    explicit FocusGuard(std::function<void()> reclaim, QObject *parent = nullptr);

    /// Begins to watch, with all quick attempts ahead.
    void start();
    void stop();

private:
    void check();

    std::function<void()> m_reclaim;
    SessionLock m_lock;
    ShellOverview m_overview;
    QTimer m_checkTimer;
    bool m_isOnGuard = false;
    int m_quickAttemptsLeft = 0;
};

} // namespace quorvane
