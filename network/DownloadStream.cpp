// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "network/DownloadStream.h"

#include "network/TransportError.h"

#include <QCoroFuture>

#include <algorithm>
#include <utility>

namespace quorvane {

namespace {

/// The longest piece, in bytes.
constexpr qint64 longestPiece = 262'144;

} // namespace

DownloadStream::DownloadStream(const HttpsRequest &request, ServerTrust trust, const QNetworkProxy &proxy,
                               Bounds bounds)
    : m_bounds(bounds)
    , m_call(request, std::move(trust), proxy)
{
    m_wait.setSingleShot(true);
    connect(&m_wait, &QTimer::timeout, this, [this] { fail(QNetworkReply::TimeoutError); });
    connect(&m_call, &HttpsCall::refused, this, &DownloadStream::fail);
    connect(&m_call, &HttpsCall::headCame, this, &DownloadStream::tell);
    connect(&m_call, &HttpsCall::bytesCame, this, &DownloadStream::tell);
    connect(&m_call, &HttpsCall::finished, this, [this] {
        m_isOver = true;
        tell();
    });
}

DownloadStream::~DownloadStream()
{
    tell();
}

QCoro::Task<Result<void>> DownloadStream::begin()
{
    while (status() == 0 && !m_isOver && m_failure == QNetworkReply::NoError) {
        const QFuture<void> told = news();
        co_await told;
    }
    if (m_failure != QNetworkReply::NoError)
        co_return Failure(transportError(m_failure));
    if (status() == 0)
        co_return Failure(transportError(m_call.reply().error()));
    co_return Result<void>();
}

qint64 DownloadStream::length()
{
    bool isKnown = false;
    const qint64 length = m_call.reply().header(QNetworkRequest::ContentLengthHeader).toLongLong(&isKnown);
    return isKnown ? length : -1;
}

QUrl DownloadStream::redirection()
{
    return m_call.reply().attribute(QNetworkRequest::RedirectionTargetAttribute).toUrl();
}

// "bytes 100-199/200", RFC 9110
std::optional<qint64> DownloadStream::partBegin()
{
    const QByteArray range = m_call.reply().rawHeader("Content-Range").trimmed();
    if (status() != partialContent || !range.startsWith("bytes "))
        return std::nullopt;
    bool isNumber = false;
    const qint64 begin = range.mid(6).split('-').first().toLongLong(&isNumber);
    return isNumber ? std::optional(begin) : std::nullopt;
}

QCoro::Task<Result<QByteArray>> DownloadStream::piece()
{
    while (m_call.reply().bytesAvailable() == 0 && !m_isOver && m_failure == QNetworkReply::NoError) {
        const QFuture<void> told = news();
        co_await told;
    }
    if (m_failure == QNetworkReply::NoError && m_bounds.end.hasExpired())
        fail(QNetworkReply::TimeoutError);
    if (m_failure != QNetworkReply::NoError)
        co_return Failure(transportError(m_failure));
    // What came before a connection broke counts.
    if (m_call.reply().bytesAvailable() > 0)
        co_return m_call.reply().read(longestPiece);
    if (m_call.reply().error() != QNetworkReply::NoError)
        co_return Failure(transportError(m_call.reply().error()));
    co_return QByteArray();
}

QFuture<void> DownloadStream::news()
{
    const qint64 left = m_bounds.end.remainingTime(); // -1: forever
    const std::chrono::milliseconds stall = m_bounds.stall;
    m_wait.start(left < 0 ? stall : std::min(stall, std::chrono::milliseconds(left)));
    m_news.emplace();
    m_news->start();
    return m_news->future();
}

void DownloadStream::tell()
{
    m_wait.stop();
    if (std::optional<QPromise<void>> news = std::exchange(m_news, std::nullopt))
        news->finish();
}

void DownloadStream::fail(QNetworkReply::NetworkError error)
{
    if (m_failure != QNetworkReply::NoError)
        return;
    m_failure = error;
    m_call.end();
    tell();
}

} // namespace quorvane
