// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "updates/FeedDownload.h"

#include "network/NetworkError.h"
#include "updates/UpdateError.h"

namespace quorvane {

namespace {

class FeedBytes final : public DownloadSink
{
public:
    QCoro::Task<Result<void>> restart() override
    {
        bytes.clear();
        co_return Result<void>();
    }
    QCoro::Task<Result<void>> take(QByteArray more) override
    {
        bytes += more;
        co_return Result<void>();
    }

    QByteArray bytes;
};

} // namespace

FeedDownload::FeedDownload(ServerTrust trust, DownloadLimits limits)
    : m_download(std::move(trust), limits)
{
}

QCoro::Task<Result<QByteArray>> FeedDownload::fetch(QUrl feed)
{
    const auto sink = std::make_shared<FeedBytes>();
    const DownloadRequest request{.url = feed, .longest = longestFeed};
    const Result<void> fetched = co_await m_download.fetch(request, sink);
    if (!fetched && fetched.error() == NetworkError::tooLong)
        co_return Failure(make_error_code(UpdateError::feedInvalid));
    if (!fetched)
        co_return Failure(make_error_code(UpdateError::feedUnreachable));
    co_return QByteArray(sink->bytes);
}

} // namespace quorvane
