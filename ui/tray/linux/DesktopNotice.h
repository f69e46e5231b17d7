// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QDBusMessage>
#include <QObject>
#include <QString>

class QDBusPendingCallWatcher;

namespace quorvane {

/// One notification of the desktop (Desktop Notifications Specification 1.2). Where no service shows any,
/// nothing happens. Main thread only; never waits.
class DesktopNotice final : public QObject
{
    Q_OBJECT

public:
    struct Words
    {
        /// One line, which services show as it is.
        QString summary;
        /// Services may take what looks like markup in it for such: ours only.
        QString body;
        /// What a click on it does; empty if nothing.
        QString action{};
    };

    explicit DesktopNotice(QObject *parent = nullptr);

    /// Shows it, in place of what this one showed before. Nothing while that is under way.
    void show(const Words &words);
    /// Takes it back, if it is still to be seen.
    void withdraw();
    /// Whether no service has said yet that it has taken it, or that it will not.
    [[nodiscard]] bool isUnderWay() const { return m_call != nullptr; }

Q_SIGNALS:
    /// A service has taken it.
    void taken();
    /// The person has clicked on it. `token` lets a window come to the front (xdg-activation-v1); it may be
    /// empty.
    void activated(const QString &token);

private Q_SLOTS:
    void keepToken(uint id, const QString &token, const QDBusMessage &message);
    void answer(uint id, const QString &action, const QDBusMessage &message);
    void forget(uint id, uint reason, const QDBusMessage &message);

private:
    void listen();
    void take();
    [[nodiscard]] bool isOurs(uint id, const QDBusMessage &message) const;

    bool m_listens = false;
    bool m_isWanted = false;
    QDBusPendingCallWatcher *m_call = nullptr;
    /// By its number; 0 while there is none.
    uint m_id = 0;
    /// Who has it.
    QString m_service;
    QString m_token;
};

} // namespace quorvane
