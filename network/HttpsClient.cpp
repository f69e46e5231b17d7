// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "network/HttpsClient.h"

#include "network/HttpsExchange.h"
#include "network/NetworkError.h"
#include "network/SystemProxy.h"
#include "network/TransportError.h"

#include <QCoroFuture>
#include <QDeadlineTimer>
#include <QPointer>

using namespace Qt::StringLiterals;

namespace quorvane {

namespace {

/// The part of the time limit that looking for a proxy may take.
constexpr int proxyShare = 5;

} // namespace

HttpsClient::HttpsClient(ServerTrust trust, std::chrono::milliseconds timeLimit)
    : m_trust(std::move(trust))
    , m_timeLimit(timeLimit)
{
}

QCoro::Task<Result<QByteArray>> HttpsClient::send(HttpsRequest request)
{
    if (request.url.scheme() != "https"_L1)
        co_return Failure(make_error_code(NetworkError::configuration));
    const QPointer<HttpsClient> self(this);
    const QDeadlineTimer end(m_timeLimit, Qt::PreciseTimer);
    const QNetworkProxy proxy = co_await systemProxy(request.url, m_timeLimit / proxyShare);
    if (!self)
        co_return Failure(transportError(QNetworkReply::OperationCanceledError));
    const std::chrono::milliseconds timeLeft(end.remainingTime());
    const auto *exchange = new HttpsExchange(request, m_trust, proxy, timeLeft, this);
    const QFuture<Result<QByteArray>> answer = exchange->answer();
    const Result<QByteArray> result = co_await answer;
    co_return result;
}

} // namespace quorvane
