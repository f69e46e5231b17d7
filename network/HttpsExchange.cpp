// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "network/HttpsExchange.h"

#include "network/HttpsClient.h"
#include "network/NetworkError.h"
#include "network/TransportError.h"

namespace quorvane {

namespace {

/// How much Qt may hold ahead of us, in bytes.
constexpr qint64 readAhead = 262'144;

QNetworkRequest networkRequest(const HttpsRequest &request, const ServerTrust &trust)
{
    QNetworkRequest made(request.url);
    made.setSslConfiguration(trust.configuration(request.url));
    made.setHeader(QNetworkRequest::ContentTypeHeader, request.contentType);
    if (!request.authorization.isEmpty())
        made.setRawHeader("Authorization", request.authorization);
    // What is not compressed cannot swell beyond the limit.
    made.setRawHeader("Accept-Encoding", "identity");
    made.setRawHeader("User-Agent", "Quorvane");
    made.setRawHeader("Accept-Language", "en");
    made.setAttribute(QNetworkRequest::Http2AllowedAttribute, false);
    made.setAttribute(QNetworkRequest::RedirectPolicyAttribute, QNetworkRequest::ManualRedirectPolicy);
    for (const auto attribute :
         {QNetworkRequest::CookieLoadControlAttribute, QNetworkRequest::CookieSaveControlAttribute,
          QNetworkRequest::AuthenticationReuseAttribute})
        made.setAttribute(attribute, QNetworkRequest::Manual);
    return made;
}

} // namespace

HttpsExchange::HttpsExchange(const HttpsRequest &request, ServerTrust trust, const QNetworkProxy &proxy,
                             std::chrono::milliseconds timeLimit, QObject *parent)
    : QObject(parent)
    , m_trust(std::move(trust))
    , m_isPinned(ServerTrust::isPinned(request.url))
{
    m_answer.start();
    m_manager.setProxy(proxy);
    m_manager.setAutoDeleteReplies(false);
    m_bound.setSingleShot(true);
    m_bound.setTimerType(Qt::PreciseTimer);
    connect(&m_bound, &QTimer::timeout, this,
            [this] { settle(Failure(transportError(QNetworkReply::TimeoutError))); });
    m_bound.start(timeLimit);
    send(request);
}

HttpsExchange::~HttpsExchange()
{
    settle(Failure(transportError(QNetworkReply::OperationCanceledError)));
    // Before the manager, which waits for its thread: that one may be waiting for what this reply says.
    delete m_reply;
}

void HttpsExchange::send(const HttpsRequest &request)
{
    const QNetworkRequest made = networkRequest(request, m_trust);
    m_reply = request.body ? m_manager.post(made, *request.body) : m_manager.get(made);
    m_reply->setReadBufferSize(readAhead);
    connect(m_reply, &QNetworkReply::sslErrors, this, &HttpsExchange::judgeCertificate);
    connect(m_reply, &QNetworkReply::encrypted, this, &HttpsExchange::openConnection);
    connect(m_reply, &QNetworkReply::metaDataChanged, this, &HttpsExchange::judgeHead);
    connect(m_reply, &QNetworkReply::readyRead, this, &HttpsExchange::takeBody);
    connect(m_reply, &QNetworkReply::finished, this, &HttpsExchange::end);
}

void HttpsExchange::judgeCertificate()
{
    if (m_isPinned && m_trust.isPinnedCertificate(m_reply->sslConfiguration().peerCertificate()))
        m_reply->ignoreSslErrors();
}

// Qt waits for this before it sends the first byte of the request.
void HttpsExchange::openConnection()
{
    // When a connection breaks before the answer, Qt sends the request again on its own, up to three times:
    // a phone would ring for each.
    if (++m_connections > 1)
        settle(Failure(transportError(QNetworkReply::RemoteHostClosedError)));
    else if (m_isPinned && !m_trust.isPinnedCertificate(m_reply->sslConfiguration().peerCertificate()))
        settle(Failure(transportError(QNetworkReply::SslHandshakeFailedError)));
}

void HttpsExchange::judgeHead()
{
    bool isKnown = false;
    const qint64 length = m_reply->header(QNetworkRequest::ContentLengthHeader).toLongLong(&isKnown);
    if (isKnown && length > HttpsClient::longestBody)
        settle(Failure(NetworkError::rejected));
}

void HttpsExchange::takeBody()
{
    m_body += m_reply->read(HttpsClient::longestBody + 1 - m_body.size());
    if (m_body.size() > HttpsClient::longestBody)
        settle(Failure(NetworkError::rejected));
}

void HttpsExchange::end()
{
    // A status that does not count is an error to Qt as well, but not by its name.
    const bool hasStatus = m_reply->attribute(QNetworkRequest::HttpStatusCodeAttribute).isValid();
    if (hasStatus && !hasGoodStatus())
        return settle(Failure(NetworkError::rejected));
    if (m_reply->error() != QNetworkReply::NoError)
        return settle(Failure(transportError(m_reply->error())));
    takeBody();
    settle(m_body);
}

void HttpsExchange::settle(const Result<QByteArray> &answer)
{
    if (m_isSettled)
        return;
    m_isSettled = true;
    m_bound.stop();
    m_reply->disconnect(this);
    m_reply->abort();
    m_answer.addResult(answer);
    m_answer.finish();
    deleteLater();
}

bool HttpsExchange::hasGoodStatus() const
{
    const int status = m_reply->attribute(QNetworkRequest::HttpStatusCodeAttribute).toInt();
    return status >= 200 && status <= 299;
}

} // namespace quorvane
