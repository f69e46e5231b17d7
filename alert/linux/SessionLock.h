// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QDBusMessage>
#include <QObject>

namespace quorvane {

/// Whether the user's session is locked, as logind says (LockedHint of org.freedesktop.login1.Session).
/// Without logind it never is. Asks asynchronously.
class SessionLock final : public QObject
{
    Q_OBJECT

public:
    explicit SessionLock(QObject *parent = nullptr);

    /// The last answer.
    [[nodiscard]] bool isLocked() const { return m_isLocked; }

Q_SIGNALS:
    void changed();

private:
    Q_SLOT void onPropertiesChanged(const QDBusMessage &message);
    void ask();

    bool m_isLocked = false;
};

} // namespace quorvane
