// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "network/HttpsCall.h"

namespace quorvane {

namespace {

/// How much Qt may hold ahead of us, in bytes.
constexpr qint64 readAhead = 262'144;

QNetworkRequest networkRequest(const HttpsRequest &request, const ServerTrust &trust)
{
    QNetworkRequest made(request.url);
    made.setSslConfiguration(trust.configuration(request.url));
    if (!request.contentType.isEmpty())
        made.setHeader(QNetworkRequest::ContentTypeHeader, request.contentType);
    if (!request.authorization.isEmpty())
        made.setRawHeader("Authorization", request.authorization);
    if (!request.range.isEmpty())
        made.setRawHeader("Range", request.range);
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

HttpsCall::HttpsCall(const HttpsRequest &request, ServerTrust trust, const QNetworkProxy &proxy)
    : m_trust(std::move(trust))
    , m_isPinned(ServerTrust::isPinned(request.url))
{
    m_manager.setProxy(proxy);
    m_manager.setAutoDeleteReplies(false);
    const QNetworkRequest made = networkRequest(request, m_trust);
    m_reply = request.body ? m_manager.post(made, *request.body) : m_manager.get(made);
    m_reply->setReadBufferSize(readAhead);
    connect(m_reply, &QNetworkReply::sslErrors, this, &HttpsCall::judgeCertificate);
    connect(m_reply, &QNetworkReply::encrypted, this, &HttpsCall::openConnection);
    connect(m_reply, &QNetworkReply::metaDataChanged, this, &HttpsCall::headCame);
    connect(m_reply, &QNetworkReply::readyRead, this, &HttpsCall::bytesCame);
    connect(m_reply, &QNetworkReply::finished, this, &HttpsCall::finished);
}

HttpsCall::~HttpsCall()
{
    end();
    // Before the manager, which waits for its thread: that one may be waiting for what this reply says.
    delete m_reply;
}

int HttpsCall::status() const
{
    return m_reply->attribute(QNetworkRequest::HttpStatusCodeAttribute).toInt();
}

void HttpsCall::end()
{
    m_reply->disconnect(this);
    // Qt complains when it has found an error itself; what still comes then ends with the reply.
    if (m_reply->error() == QNetworkReply::NoError)
        m_reply->abort();
}

void HttpsCall::judgeCertificate()
{
    if (m_isPinned && m_trust.isPinnedCertificate(m_reply->sslConfiguration().peerCertificate()))
        m_reply->ignoreSslErrors();
}

// Qt waits for this before it sends the first byte of the request.
void HttpsCall::openConnection()
{
    // When a connection breaks before the answer, Qt sends the request again on its own, up to three times:
    // a phone would ring for each.
    if (++m_connections > 1)
        Q_EMIT refused(QNetworkReply::RemoteHostClosedError);
    else if (m_isPinned && !m_trust.isPinnedCertificate(m_reply->sslConfiguration().peerCertificate()))
        Q_EMIT refused(QNetworkReply::SslHandshakeFailedError);
}

} // namespace quorvane
