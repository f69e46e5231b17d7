// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "core/Result.h"

#include <QByteArray>
#include <QCoroTask>
#include <QString>

#include <optional>

namespace quorvane {

/// The user's keyring: small byte values by account name, all under this program's service name. Owned by
/// `app/` and called on the main thread only, which no call ever blocks. Calls may overlap, and a task
/// outlives the store. Errors are the system's and never hold a value: `std::errc::permission_denied` while
/// the keyring is locked, `std::errc::timed_out`, and others.
class SecretStore
{
public:
    SecretStore() = default;
    virtual ~SecretStore() = default;
    Q_DISABLE_COPY_MOVE(SecretStore)

    /// The account's value, absent when there is none. Never asks the person for anything and ends within 5
    /// seconds.
    [[nodiscard]] virtual QCoro::Task<Result<std::optional<QByteArray>>> read(QString account) = 0;

    /// Replaces the account's value, or adds it. May let the desktop ask the person to unlock the keyring, so
    /// it belongs to something that the person has just done; whoever does not answer in minutes gets
    /// `std::errc::timed_out`.
    [[nodiscard]] virtual QCoro::Task<Result<void>> write(QString account, QByteArray value) = 0;
};

} // namespace quorvane
