// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "core/Result.h"
#include "network/HttpsCall.h"

#include <QByteArray>
#include <QCoroTask>
#include <QDeadlineTimer>
#include <QFuture>
#include <QPromise>
#include <QTimer>
#include <QUrl>

#include <chrono>
#include <optional>

namespace quorvane {

/// One request, and its answer to be asked for piece by piece: what nobody asks for yet stays with the
/// server, but for a bounded rest. One question at a time; whoever asks keeps this alive until the answer.
/// Fails as `transportError` says.
class DownloadStream final : public QObject
{
    Q_OBJECT

public:
    struct Bounds
    {
        /// For each wait.
        std::chrono::milliseconds stall;
        /// For all of them.
        QDeadlineTimer end;
    };

    /// The status of an answer that is a part of the body (RFC 9110, section 15.3.7).
    static constexpr int partialContent = 206;

    /// Sends the request.
    DownloadStream(const HttpsRequest &request, ServerTrust trust, const QNetworkProxy &proxy, Bounds bounds);
    ~DownloadStream() override;

    /// Done when the answer has begun; what is said of it below holds from then on.
    [[nodiscard]] QCoro::Task<Result<void>> begin();
    [[nodiscard]] int status() const { return m_call.status(); }
    /// How many bytes are announced, -1 when none are.
    [[nodiscard]] qint64 length();
    /// Where to ask instead; empty when the answer is none that sends elsewhere.
    [[nodiscard]] QUrl redirection();
    /// The place in the whole body that this answer begins at, if it is a part of one and says so.
    [[nodiscard]] std::optional<qint64> partBegin();

    /// The body's next bytes; none at its end.
    [[nodiscard]] QCoro::Task<Result<QByteArray>> piece();

    /// Ends what is under way, and what is asked later, with `OperationCanceledError`.
    void cancel() { fail(QNetworkReply::OperationCanceledError); }

private:
    [[nodiscard]] QFuture<void> news();
    void tell();
    void fail(QNetworkReply::NetworkError error);

    Bounds m_bounds;
    HttpsCall m_call;
    QTimer m_wait;
    std::optional<QPromise<void>> m_news;
    bool m_isOver = false;
    QNetworkReply::NetworkError m_failure = QNetworkReply::NoError;
};

} // namespace quorvane
