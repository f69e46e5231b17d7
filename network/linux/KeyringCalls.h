// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "core/Result.h"

#include <QCoroTask>
#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusObjectPath>
#include <QDeadlineTimer>
#include <QVariantList>

namespace quorvane {

/// Calls to the keyring service, each with a time bound of its own and all of them with a common one.
class KeyringCalls final
{
public:
    static const QString service;
    /// The object that everything begins with.
    static const QDBusObjectPath root;

    explicit KeyringCalls(QDBusConnection bus, QDeadlineTimer deadline = QDeadlineTimer::Forever);

    [[nodiscard]] const QDBusConnection &bus() const { return m_bus; }

    /// A call without arguments yet. `interface` is the part after "org.freedesktop.Secret.".
    [[nodiscard]] static QDBusMessage message(const QDBusObjectPath &object, const QString &interface,
                                              const QString &method);
    /// What `message` is answered with, whose types must be those of `signature`. Fails with
    /// `std::errc::permission_denied` when something is locked, `std::errc::timed_out` and
    /// `std::errc::not_connected` when nobody answers, `std::errc::bad_message` when it is something else,
    /// and `std::errc::io_error` when the service refuses.
    [[nodiscard]] QCoro::Task<Result<QVariantList>> answer(QDBusMessage message, QString signature) const;

    [[nodiscard]] static std::error_code errorOf(const QDBusMessage &reply);
    /// Whether the service names an object by `object`, and not none.
    [[nodiscard]] static bool isObject(const QDBusObjectPath &object);

private:
    QDBusConnection m_bus;
    QDeadlineTimer m_deadline;
};

} // namespace quorvane
