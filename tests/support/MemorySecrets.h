// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "network/SecretStore.h"

#include <QCoroFuture>
#include <QMap>
#include <QPromise>

namespace quorvane {

/// A keyring in memory that answers at once, or when the test says.
class MemorySecrets final : public SecretStore
{
public:
    [[nodiscard]] QCoro::Task<Result<std::optional<QByteArray>>> read(QString account) override
    {
        if (hangs) {
            const QFuture<void> released = release.future();
            co_await released;
        }
        const auto value = values.constFind(account);
        const std::optional<QByteArray> found =
            value == values.cend() ? std::nullopt : std::optional(value.value());
        co_return found;
    }

    [[nodiscard]] QCoro::Task<Result<void>> write(QString account, QByteArray value) override
    {
        values.insert(account, value);
        co_return Result<void>();
    }

    QMap<QString, QByteArray> values;
    bool hangs = false;
    /// Finished to let the reads go on.
    QPromise<void> release;
};

} // namespace quorvane
