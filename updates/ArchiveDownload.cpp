// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "updates/ArchiveDownload.h"

#include "network/HttpsDownload.h"
#include "network/NetworkError.h"
#include "network/TransportError.h"
#include "updates/ArchiveFile.h"
#include "updates/UpdateError.h"

#include <QCoroFuture>
#include <QPointer>
#include <QPromise>
#include <QTimer>

namespace quorvane {

namespace {

/// A try that brought this many bytes shows that going on is worth while, in spite of all the tries before.
constexpr qint64 worthwhile = 1'000'000;

Failure failure(UpdateError error)
{
    return Failure(make_error_code(error));
}

bool isBrokenConnection(const std::error_code &error)
{
    return error.category() == transportError(QNetworkReply::NoError).category() &&
           error != transportError(QNetworkReply::SslHandshakeFailedError);
}

UpdateError meaning(const std::error_code &error)
{
    if (error == NetworkError::tooLong)
        return UpdateError::wrongLength;
    return error == UpdateError::diskFull ? UpdateError::diskFull : UpdateError::downloadFailed;
}

/// Is over after `time`, or with `life`.
QFuture<void> pause(std::chrono::milliseconds time, QObject *life)
{
    const auto over = std::make_shared<QPromise<void>>();
    over->start();
    auto *timer = new QTimer(life);
    timer->setSingleShot(true);
    // A promise that goes without having been kept ends the wait as well.
    QObject::connect(timer, &QTimer::timeout, timer, [over, timer] {
        over->finish();
        timer->deleteLater();
    });
    timer->start(time);
    return over->future();
}

/// Fetches what the file does not have, in as many tries as it takes.
QCoro::Task<Result<void>> complete(QPointer<HttpsDownload> download, std::shared_ptr<ArchiveFile> file,
                                   DownloadRequest request, std::vector<std::chrono::milliseconds> pauses)
{
    std::size_t tries = 0;
    for (;;) {
        const qint64 before = file->size();
        request.offset = before;
        const Result<void> fetched = co_await download->fetch(request, file);
        if (!download)
            co_return failure(UpdateError::downloadCancelled);
        if (fetched)
            co_return Result<void>();
        if (file->size() - before >= worthwhile)
            tries = 0;
        if (!isBrokenConnection(fetched.error()) || tries == pauses.size())
            co_return failure(meaning(fetched.error()));
        const QFuture<void> waited = pause(pauses[tries++], download);
        co_await waited;
        if (!download)
            co_return failure(UpdateError::downloadCancelled);
    }
}

} // namespace

ArchiveDownload::ArchiveDownload(ArchiveDownloadSetup setup)
    : m_setup(std::move(setup))
{
}

ArchiveDownload::~ArchiveDownload() = default;

void ArchiveDownload::cancel()
{
    m_download.reset();
}

QCoro::Task<Result<void>> ArchiveDownload::fetch(UpdateItem item, QString file, Progress progress)
{
    if (m_isUnderWay)
        co_return failure(UpdateError::downloadFailed);
    m_isUnderWay = true;
    const QPointer<ArchiveDownload> self(this);
    m_download = std::make_unique<HttpsDownload>(m_setup.trust, m_setup.limits);
    // Goes with `cancel` and with this object: whether the result is still wanted.
    const QPointer<HttpsDownload> download(m_download.get());
    const Result<void> fetched = co_await fill(item, file, std::move(progress));
    if (self)
        m_isUnderWay = false;
    if (!download)
        co_return failure(UpdateError::downloadCancelled);
    m_download.reset();
    co_return Result<void>(fetched);
}

QCoro::Task<Result<void>> ArchiveDownload::fill(UpdateItem item, QString path, Progress progress)
{
    const QPointer<HttpsDownload> download(m_download.get());
    const std::vector<std::chrono::milliseconds> pauses = m_setup.pauses;
    const Result<std::shared_ptr<ArchiveFile>> opened = co_await ArchiveFile::open(path);
    if (!opened)
        co_return failure(meaning(opened.error()));
    const std::shared_ptr<ArchiveFile> &file = *opened;
    Result<void> done;
    if (file->size() > item.length)
        done = co_await file->restart();
    if (!download)
        co_return failure(UpdateError::downloadCancelled);
    if (progress && file->size() == item.length)
        progress(item.length);
    const DownloadRequest request{.url = item.archive, .longest = item.length, .progress = progress};
    if (done && file->size() < item.length)
        done = co_await complete(download, file, request, pauses);
    if (done && file->size() != item.length)
        done = failure(UpdateError::wrongLength);
    if (!done && (done.error() == UpdateError::wrongLength || done.error() == UpdateError::diskFull)) {
        const Result<void> removed = co_await file->remove();
        Q_UNUSED(removed)
    }
    co_return Result<void>(done);
}

} // namespace quorvane
