// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "core/Result.h"
#include "network/HttpsRequest.h"
#include "network/ServerTrust.h"

#include <QByteArray>
#include <QCoroTask>
#include <QObject>

#include <chrono>

namespace quorvane {

/// Sends requests over HTTPS, each on its own: they share no connection, cache, cookie or credential. Neither
/// redirects are followed nor are challenges answered. Nothing that it sends or gets is logged.
class HttpsClient final : public QObject
{
    Q_OBJECT

public:
    /// The longest body of an answer that counts, in bytes.
    static constexpr qint64 longestBody = 8'000'000;
    static constexpr std::chrono::milliseconds defaultTimeLimit{15'000};

    explicit HttpsClient(ServerTrust trust, std::chrono::milliseconds timeLimit = defaultTimeLimit);

    /// The body of the answer. Fails with `NetworkError::configuration` for a URL that is not HTTPS, with
    /// `NetworkError::rejected` for an answer that does not count, else as `transportError` says. A request
    /// ends at the time limit, and with the client.
    [[nodiscard]] QCoro::Task<Result<QByteArray>> send(HttpsRequest request);

private:
    ServerTrust m_trust;
    std::chrono::milliseconds m_timeLimit;
};

} // namespace quorvane
