// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "network/HttpsDownload.h"

#include "network/DownloadStream.h"
#include "network/NetworkError.h"
#include "network/ProgressPace.h"
#include "network/SystemProxy.h"
#include "network/TransportError.h"

#include <QPointer>

using namespace Qt::StringLiterals;

namespace quorvane {

namespace {

constexpr int completeContent = 200;
constexpr int rangeNotSatisfiable = 416;

constexpr std::chrono::milliseconds proxyTime{3'000};

Failure cancelled()
{
    return Failure(transportError(QNetworkReply::OperationCanceledError));
}

HttpsRequest getRequest(const QUrl &url, qint64 offset)
{
    HttpsRequest request{.url = url};
    request.url.setUserInfo({});
    if (offset > 0)
        request.range = "bytes=" + QByteArray::number(offset) + '-';
    return request;
}

} // namespace

HttpsDownload::HttpsDownload(ServerTrust trust, DownloadLimits limits)
    : m_trust(std::move(trust))
    , m_limits(limits)
{
}

QCoro::Task<Result<void>> HttpsDownload::fetch(DownloadRequest request, std::shared_ptr<DownloadSink> sink)
{
    const QPointer<HttpsDownload> self(this);
    const QDeadlineTimer end = m_limits.whole ? QDeadlineTimer(*m_limits.whole, Qt::PreciseTimer)
                                              : QDeadlineTimer(QDeadlineTimer::Forever);
    const Result<Answer> answer = co_await askFromWhereItStood(request, end);
    if (!self)
        co_return cancelled();
    if (!answer)
        co_return Failure(answer.error());
    const Answer &stream = *answer;
    const bool isRest = request.offset > 0 && stream->partBegin() == request.offset;
    if (!isRest && stream->status() != completeContent)
        co_return Failure(make_error_code(NetworkError::rejected));
    const qint64 present = isRest ? request.offset : 0;
    if (stream->length() > request.longest - present)
        co_return Failure(make_error_code(NetworkError::tooLong));
    if (request.offset != present) {
        const Result<void> restarted = co_await sink->restart();
        if (!restarted)
            co_return Failure(restarted.error());
        if (!self)
            co_return cancelled();
    }
    request.offset = present;
    const Result<void> poured = co_await pour(stream, request, sink);
    co_return Result<void>(poured);
}

/// Follows redirections; fails when they lead nowhere.
QCoro::Task<Result<HttpsDownload::Answer>> HttpsDownload::ask(QUrl url, qint64 offset, QDeadlineTimer end)
{
    const QPointer<HttpsDownload> self(this);
    for (int redirects = 0; redirects <= mostRedirects; ++redirects) {
        if (url.scheme() != "https"_L1)
            co_return Failure(
                make_error_code(redirects == 0 ? NetworkError::configuration : NetworkError::rejected));
        const QNetworkProxy proxy = co_await systemProxy(url, proxyTime);
        if (!self)
            co_return cancelled();
        const HttpsRequest request = getRequest(url, offset);
        const DownloadStream::Bounds bounds{.stall = m_limits.stall, .end = end};
        const auto stream = std::make_shared<DownloadStream>(request, m_trust, proxy, bounds);
        connect(this, &QObject::destroyed, stream.get(), &DownloadStream::cancel);
        const Result<void> begun = co_await stream->begin();
        if (!begun)
            co_return Failure(begun.error());
        if (stream->redirection().isEmpty())
            co_return Answer(stream);
        url = url.resolved(stream->redirection());
    }
    co_return Failure(make_error_code(NetworkError::rejected));
}

/// Asks for the whole body instead when the server has no such rest of it.
QCoro::Task<Result<HttpsDownload::Answer>> HttpsDownload::askFromWhereItStood(DownloadRequest request,
                                                                              QDeadlineTimer end)
{
    const QPointer<HttpsDownload> self(this);
    const Result<Answer> rest = co_await ask(request.url, request.offset, end);
    if (!self)
        co_return cancelled();
    if (!rest)
        co_return Failure(rest.error());
    const Answer &stream = *rest;
    const bool isOther =
        stream->status() == DownloadStream::partialContent && stream->partBegin() != request.offset;
    if (request.offset == 0 || (!isOther && stream->status() != rangeNotSatisfiable))
        co_return Answer(stream);
    stream->cancel();
    const Result<Answer> whole = co_await ask(request.url, 0, end);
    co_return Result<Answer>(whole);
}

QCoro::Task<Result<void>> HttpsDownload::pour(Answer answer, DownloadRequest request,
                                              std::shared_ptr<DownloadSink> sink)
{
    const QPointer<HttpsDownload> self(this);
    ProgressPace progress(request.progress);
    qint64 present = request.offset;
    for (;;) {
        const Result<QByteArray> piece = co_await answer->piece();
        if (!self)
            co_return cancelled();
        if (!piece)
            co_return Failure(piece.error());
        const QByteArray &bytes = *piece;
        if (bytes.isEmpty())
            break;
        present += bytes.size();
        if (present > request.longest)
            co_return Failure(make_error_code(NetworkError::tooLong));
        const Result<void> taken = co_await sink->take(bytes);
        if (!taken)
            co_return Failure(taken.error());
        if (!self)
            co_return cancelled();
        progress.tell(present);
        if (!self)
            co_return cancelled();
    }
    progress.end(present);
    co_return Result<void>();
}

} // namespace quorvane
