// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QObject>
#include <QTimer>

#include <functional>

class QWindow;

namespace quorvane {

/// Keeps a Wayland window from being drawn and answered until the compositor owes it no frame, for only then
/// may the window be hidden or destroyed.
///
/// Qt 6.4 takes in frame callbacks on a thread of its own and destroys them there; hiding or destroying the
/// window destroys a callback that is still out on the main thread, without a lock. When both meet,
/// libwayland aborts the program ("wl_proxy_unref: Assertion `proxy->refcount > 0' failed"). Newer Qt takes a
/// lock there.
class FrameSettler final : public QObject
{
    Q_OBJECT

public:
    /// Runs `action` from the event loop once nothing is under way: mostly within one frame, never later than
    /// a quarter of a second. Takes the place of an action that still waits for the same window, and is
    /// dropped with the window.
    static void whenSettled(QWindow &window, std::function<void()> action);

    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    explicit FrameSettler(QWindow &window);

    void noteUpdate();
    void finish();

    QWindow &m_window;
    std::function<void()> m_action;
    QTimer m_finishTimer;
    int m_updatesToCome;
};

} // namespace quorvane
