// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "network/SecretStore.h"

#include <QCoroFuture>
#include <QMap>
#include <QPromise>
#include <QStringList>

#include <algorithm>

namespace quorvane {

/// A keyring in memory that answers at once, or when the test finishes `hold`.
class MemorySecrets final : public SecretStore
{
public:
    [[nodiscard]] QCoro::Task<Result<std::optional<QByteArray>>> read(QString account) override
    {
        ++reads;
        const QFuture<void> held = hold.future();
        if (held.isRunning())
            co_await held;
        if (failure)
            co_return Failure(failure);
        co_return values.contains(account) ? std::optional(values[account]) : std::nullopt;
    }

    [[nodiscard]] QCoro::Task<Result<void>> write(QString account, QByteArray value) override
    {
        const QFuture<void> held = writeHold.future();
        if (held.isRunning())
            co_await held;
        written.append(account);
        if (std::ranges::any_of(refused, [&](const QString &start) { return account.startsWith(start); }))
            co_return Failure(std::make_error_code(std::errc::permission_denied));
        values[account] = value;
        co_return Result<void>();
    }

    QMap<QString, QByteArray> values;
    /// Started to let the reads wait.
    QPromise<void> hold;
    /// What reads fail with, as those of a locked keyring.
    std::error_code failure;
    int reads = 0;
    /// Started to let the writes wait.
    QPromise<void> writeHold;
    /// How the accounts begin that cannot be written, and all that were tried.
    QStringList refused;
    QStringList written;
};

} // namespace quorvane
