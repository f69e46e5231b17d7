// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "network/SecretStore.h"

#include <chrono>
#include <memory>

namespace quorvane {

class SecretService;

/// The desktop's keyring, on a session bus that is connected to when somebody first asks for a value, and
/// away from the main thread: connecting to a bus that hangs takes for ever. Outlives its tasks.
class LateSecretService final : public SecretStore
{
public:
    /// How long the bus may take, before `std::errc::timed_out`.
    static constexpr std::chrono::seconds connectionTime{5};

    /// `answerTime` as for `SecretService`.
    explicit LateSecretService(std::chrono::milliseconds answerTime);
    ~LateSecretService() override;

    [[nodiscard]] QCoro::Task<Result<std::optional<QByteArray>>> read(QString account) override;
    [[nodiscard]] QCoro::Task<Result<void>> write(QString account, QByteArray value) override;

private:
    [[nodiscard]] QCoro::Task<bool> connect();

    std::chrono::milliseconds m_answerTime;
    std::unique_ptr<SecretService> m_service;
};

} // namespace quorvane
