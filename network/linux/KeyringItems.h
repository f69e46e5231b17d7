// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "network/linux/KeyringCalls.h"
#include "network/linux/KeyringSession.h"

#include <QByteArray>
#include <QList>

#include <chrono>

namespace quorvane {

/// The items of one account in all keyrings of the person. Fails as `KeyringCalls::answer` does.
class KeyringItems final
{
public:
    struct Found
    {
        /// The one that was changed last is the first.
        QList<QDBusObjectPath> unlocked;
        QList<QDBusObjectPath> locked;
    };

    KeyringItems(KeyringCalls calls, QString account);

    [[nodiscard]] QCoro::Task<Result<Found>> find() const;
    [[nodiscard]] QCoro::Task<Result<QByteArray>> value(QDBusObjectPath item) const;
    [[nodiscard]] QCoro::Task<Result<void>> replace(QDBusObjectPath item, QByteArray value) const;
    /// A question of the service to the person may stay for `answerTime`.
    [[nodiscard]] QCoro::Task<Result<void>> add(QDBusObjectPath collection, QByteArray value,
                                                std::chrono::milliseconds answerTime) const;
    /// Does not ask the person: where the service would, the items stay.
    [[nodiscard]] QCoro::Task<> remove(QList<QDBusObjectPath> items) const;

private:
    [[nodiscard]] QCoro::Task<QList<QDBusObjectPath>> lastChangedFirst(QList<QDBusObjectPath> items) const;
    [[nodiscard]] QCoro::Task<Result<quint64>> changeTime(QDBusObjectPath item) const;
    [[nodiscard]] QVariantMap newItem() const;

    KeyringCalls m_calls;
    QString m_account;
};

} // namespace quorvane
