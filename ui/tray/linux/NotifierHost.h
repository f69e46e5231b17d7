// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QDBusServiceWatcher>
#include <QDeadlineTimer>
#include <QObject>
#include <QTimer>

class QDBusPendingCallWatcher;

namespace quorvane {

/// Waits until something shows the items that programs register with the session's StatusNotifierWatcher, be
/// it there already or hours from now. Nothing blocks, and no service is started by asking.
class NotifierHost final : public QObject
{
    Q_OBJECT

public:
    explicit NotifierHost(QObject *parent = nullptr);

    void start();
    /// Asks again, a moment from now. Whoever makes Qt ask the same question has to do so upon the answer: Qt
    /// waits for it, and a watcher that does not answer would stop the program.
    Q_SLOT void look();
    /// An answer is to come. From a watcher that has come to a stop it never may.
    [[nodiscard]] bool isLooking() const { return m_settle.isActive() || m_question != nullptr; }

Q_SIGNALS:
    /// Told once.
    void appeared();
    /// There is none now: something has answered so, or nothing can.
    void missed();

private:
    void lookTwice();
    void ask();
    void take(QDBusPendingCallWatcher &answer);

    QDBusServiceWatcher m_watcher;
    QTimer m_settle;
    QDeadlineTimer m_latest;
    /// The one whose answer counts.
    const QDBusPendingCallWatcher *m_question = nullptr;
    bool m_hasAppeared = false;
};

} // namespace quorvane
