// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QDBusServiceWatcher>
#include <QObject>

namespace quorvane {

/// Waits until something shows the items that programs register with the session's StatusNotifierWatcher, be
/// it there already or hours from now. Nothing blocks, and no service is started by asking.
class NotifierHost final : public QObject
{
    Q_OBJECT

public:
    explicit NotifierHost(QObject *parent = nullptr);

    void start();

Q_SIGNALS:
    /// Told once.
    void appeared();

private:
    Q_SLOT void ask();
    void askRepeatedly();

    QDBusServiceWatcher m_watcher;
    bool m_hasAppeared = false;
};

} // namespace quorvane
