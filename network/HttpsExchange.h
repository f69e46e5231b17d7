// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "core/Result.h"
#include "network/HttpsCall.h"

#include <QFuture>
#include <QPromise>
#include <QTimer>

#include <chrono>

namespace quorvane {

/// One request and its answer, over a connection of its own (HttpsCall). Deletes itself after the answer;
/// whoever deletes it earlier ends it with `OperationCanceledError`.
class HttpsExchange final : public QObject
{
    Q_OBJECT

public:
    /// Sends the request; `timeLimit` bounds everything from here to the last byte of the answer.
    HttpsExchange(const HttpsRequest &request, ServerTrust trust, const QNetworkProxy &proxy,
                  std::chrono::milliseconds timeLimit, QObject *parent);
    ~HttpsExchange() override;

    /// The body of an answer that counts, or why there is none.
    [[nodiscard]] QFuture<Result<QByteArray>> answer() const { return m_answer.future(); }

private:
    void judgeHead();
    void takeBody();
    void end();
    void settle(const Result<QByteArray> &answer);
    [[nodiscard]] bool hasGoodStatus() const;

    HttpsCall m_call;
    QTimer m_bound;
    QByteArray m_body;
    QPromise<Result<QByteArray>> m_answer;
    bool m_isSettled = false;
};

} // namespace quorvane
