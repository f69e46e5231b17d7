// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "core/Characters.h"
#include "network/Decoding.h"
#include "network/Network.h"
#include "network/NetworkError.h"
#include "network/Secrets.h"
#include "network/TransportError.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QPointer>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace quorvane {

namespace {

constexpr qsizetype shortestToken = 32;

// A line break would begin a header of its own.
bool isUsableToken(const QString &token)
{
    return Characters::count(token) >= shortestToken &&
           std::ranges::none_of(token, [](QChar c) { return c.category() == QChar::Other_Control; });
}

QByteArray compact(const QJsonObject &object)
{
    return QJsonDocument(object).toJson(QJsonDocument::Compact);
}

} // namespace

Result<QUrl> Network::serverURL(const QString &path) const
{
    return serverURL(m_setup.serverAddress(), path);
}

Result<QUrl> Network::serverURL(const QString &text, const QString &path)
{
    QUrl url(text, QUrl::StrictMode);
    // The text is asked where the parsed URL forgets: capitals in the scheme, an empty user name.
    const bool isPlain = text.startsWith("https://"_L1) && !text.section(u'/', 2, 2).contains(u'@');
    if (!isPlain || !url.isValid() || url.host().isEmpty() || url.hasQuery() || url.hasFragment())
        return Failure(NetworkError::configuration);
    QString whole = url.path(QUrl::FullyEncoded);
    if (!whole.endsWith(u'/'))
        whole += u'/';
    whole += QString::fromLatin1(QUrl::toPercentEncoding(path));
    url.setPath(whole, QUrl::StrictMode);
    return url;
}

template<class Record>
QCoro::Task<Result<Record>> Network::server(QString path, std::optional<QByteArray> body)
{
    const QPointer<Network> self(this);
    const std::optional<QString> token = co_await m_setup.secrets.get(Secrets::serverToken);
    if (!self)
        co_return Failure(transportError(QNetworkReply::OperationCanceledError));
    if (!token || !isUsableToken(*token))
        co_return Failure(make_error_code(NetworkError::configuration));
    const Result<QUrl> url = serverURL(path);
    if (!url)
        co_return Failure(url.error());
    const HttpsRequest request{.url = *url,
                               .contentType = "application/json",
                               .authorization = "Bearer " + token->toUtf8(),
                               .body = body};
    const Result<QByteArray> answer = co_await m_client.send(request);
    const Result<Record> record = co_await decoded<Record>(answer);
    co_return record;
}

QCoro::Task<Result<ServerState>> Network::state()
{
    return server<ServerState>(u"state"_s, std::nullopt);
}

QCoro::Task<Result<OKResponse>> Network::snapshot(const std::vector<Meeting> &meetings)
{
    QJsonArray events;
    for (const Meeting &meeting : meetings)
        events.append(meeting.toJson());
    return server<OKResponse>(u"snapshot"_s, compact({{"events"_L1, events}}));
}

QCoro::Task<Result<OKResponse>> Network::removeSnapshot()
{
    return server<OKResponse>(u"snapshot"_s, R"({"events":[]})");
}

QCoro::Task<Result<OKResponse>> Network::ack(QString id)
{
    return server<OKResponse>(u"ack"_s, compact({{"id"_L1, id}}));
}

QCoro::Task<Result<OKResponse>> Network::pushover(QString token, QString user)
{
    return server<OKResponse>(u"pushover"_s, compact({{"token"_L1, token}, {"user"_L1, user}}));
}

QCoro::Task<Result<OKResponse>> Network::test()
{
    const double now = m_setup.now();
    const Meeting meeting{
        .id = u"test"_s, .title = u"Test"_s, .start = now, .end = now, .source = Meeting::manualSource};
    return server<OKResponse>(u"test"_s, compact(meeting.toJson()));
}

} // namespace quorvane
