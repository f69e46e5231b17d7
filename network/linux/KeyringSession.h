// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "network/linux/KeyringCalls.h"

namespace quorvane {

/// What values are handed over in; ends with its owner. Values are not encrypted in it.
class KeyringSession final
{
public:
    [[nodiscard]] static QCoro::Task<Result<KeyringSession>> open(KeyringCalls calls);

    KeyringSession(QDBusConnection bus, QDBusObjectPath path);
    KeyringSession(KeyringSession &&other) noexcept;
    KeyringSession &operator=(KeyringSession &&other) noexcept;
    Q_DISABLE_COPY(KeyringSession)
    ~KeyringSession();

    [[nodiscard]] const QDBusObjectPath &path() const { return m_path; }

private:
    QDBusConnection m_bus;
    QDBusObjectPath m_path;
};

} // namespace quorvane
