// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "network/HttpsExchange.h"

#include "network/HttpsClient.h"
#include "network/NetworkError.h"
#include "network/TransportError.h"

namespace quorvane {

HttpsExchange::HttpsExchange(const HttpsRequest &request, ServerTrust trust, const QNetworkProxy &proxy,
                             std::chrono::milliseconds timeLimit, QObject *parent)
    : QObject(parent)
    , m_call(request, std::move(trust), proxy)
{
    m_answer.start();
    m_bound.setSingleShot(true);
    m_bound.setTimerType(Qt::PreciseTimer);
    connect(&m_bound, &QTimer::timeout, this,
            [this] { settle(Failure(transportError(QNetworkReply::TimeoutError))); });
    m_bound.start(timeLimit);
    connect(&m_call, &HttpsCall::refused, this,
            [this](QNetworkReply::NetworkError error) { settle(Failure(transportError(error))); });
    connect(&m_call, &HttpsCall::headCame, this, &HttpsExchange::judgeHead);
    connect(&m_call, &HttpsCall::bytesCame, this, &HttpsExchange::takeBody);
    connect(&m_call, &HttpsCall::finished, this, &HttpsExchange::end);
}

HttpsExchange::~HttpsExchange()
{
    settle(Failure(transportError(QNetworkReply::OperationCanceledError)));
}

void HttpsExchange::judgeHead()
{
    bool isKnown = false;
    const qint64 length = m_call.reply().header(QNetworkRequest::ContentLengthHeader).toLongLong(&isKnown);
    if (isKnown && length > HttpsClient::longestBody)
        settle(Failure(NetworkError::rejected));
}

void HttpsExchange::takeBody()
{
    m_body += m_call.reply().read(HttpsClient::longestBody + 1 - m_body.size());
    if (m_body.size() > HttpsClient::longestBody)
        settle(Failure(NetworkError::rejected));
}

void HttpsExchange::end()
{
    // A status that does not count is an error to Qt as well, but not by its name.
    if (m_call.status() != 0 && !hasGoodStatus())
        return settle(Failure(NetworkError::rejected));
    if (m_call.reply().error() != QNetworkReply::NoError)
        return settle(Failure(transportError(m_call.reply().error())));
    takeBody();
    settle(m_body);
}

void HttpsExchange::settle(const Result<QByteArray> &answer)
{
    if (m_isSettled)
        return;
    m_isSettled = true;
    m_bound.stop();
    m_call.end();
    m_answer.addResult(answer);
    m_answer.finish();
    deleteLater();
}

bool HttpsExchange::hasGoodStatus() const
{
    return m_call.status() >= 200 && m_call.status() <= 299;
}

} // namespace quorvane
