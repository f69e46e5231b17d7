// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "network/linux/LateSecretService.h"

#include "async/OffThread.h"
#include "network/linux/SecretService.h"

namespace quorvane {

namespace {

Failure timedOut()
{
    return Failure(std::make_error_code(std::errc::timed_out));
}

} // namespace

LateSecretService::LateSecretService(std::chrono::milliseconds answerTime)
    : m_answerTime(answerTime)
{
}

LateSecretService::~LateSecretService() = default;

QCoro::Task<Result<std::optional<QByteArray>>> LateSecretService::read(QString account)
{
    const bool isConnected = co_await connect();
    if (!isConnected)
        co_return timedOut();
    co_return co_await m_service->read(account);
}

QCoro::Task<Result<void>> LateSecretService::write(QString account, QByteArray value)
{
    const bool isConnected = co_await connect();
    if (!isConnected)
        co_return timedOut();
    co_return co_await m_service->write(account, value);
}

// A bus that is not there is one too: its calls fail at once.
QCoro::Task<bool> LateSecretService::connect()
{
    if (m_service)
        co_return true;
    std::function<bool()> ask = [] { return QDBusConnection::sessionBus().isConnected(); };
    const std::optional<bool> answer = co_await offThread<bool>(std::move(ask), connectionTime);
    if (answer && !m_service)
        m_service = std::make_unique<SecretService>(QDBusConnection::sessionBus(), m_answerTime);
    co_return m_service != nullptr;
}

} // namespace quorvane
