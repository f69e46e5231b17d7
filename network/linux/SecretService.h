// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "network/SecretStore.h"

#include <QDBusConnection>

#include <chrono>

namespace quorvane {

/// The desktop's keyring through the Secret Service interface of the session bus. An account is an item with
/// the attributes `service` ("me.tarnel.Quorvane") and `account`, as other keyring tools can find it; a new
/// one goes to the default keyring, which is made when there is none. Holds nothing between the calls, so the
/// service may come, go and restart as it likes. There is no other place that values could go to.
///
/// Values cross the bus in the clear: whoever can read there can ask the keyring just as well. Nothing here
/// writes them out; but where the environment has QDBUS_DEBUG, Qt does so with every value that it receives.
class SecretService final : public SecretStore
{
public:
    /// `answerTime` is how long a person may take over the desktop's question in a write.
    explicit SecretService(QDBusConnection bus = QDBusConnection::sessionBus(),
                           std::chrono::milliseconds answerTime = std::chrono::minutes(2));

    /// Of several values the one that was changed last counts. Those in locked keyrings count only when there
    /// is no other, and then the read fails.
    [[nodiscard]] QCoro::Task<Result<std::optional<QByteArray>>> read(QString account) override;

    /// Leaves one value where there were several, save in keyrings that stay locked.
    [[nodiscard]] QCoro::Task<Result<void>> write(QString account, QByteArray value) override;

private:
    QDBusConnection m_bus;
    std::chrono::milliseconds m_answerTime;
};

} // namespace quorvane
