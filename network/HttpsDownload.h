// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "core/Result.h"
#include "network/DownloadLimits.h"
#include "network/DownloadRequest.h"
#include "network/DownloadSink.h"
#include "network/ServerTrust.h"

#include <QCoroTask>
#include <QDeadlineTimer>
#include <QObject>
#include <QUrl>

#include <memory>

namespace quorvane {

class DownloadStream;

/// Fetches bodies of any size over HTTPS, each piece to its sink before the next one. Redirects are followed
/// to other HTTPS addresses, each over a connection of its own whose certificate is judged anew; no cookie,
/// cache or credential is used, and no request is sent twice. Main thread only. Downloads under way end with
/// this object.
class HttpsDownload final : public QObject
{
    Q_OBJECT

public:
    static constexpr int mostRedirects = 5;

    explicit HttpsDownload(ServerTrust trust, DownloadLimits limits = {});

    /// Done when the sink has the whole body. Fails with `NetworkError::configuration` for a URL that is not
    /// HTTPS, with `NetworkError::rejected` for an answer that does not count, with `NetworkError::tooLong`
    /// for a body above `request.longest`, with what the sink failed with, else as `transportError` says.
    /// After any failure the sink has what came before.
    [[nodiscard]] QCoro::Task<Result<void>> fetch(DownloadRequest request,
                                                  std::shared_ptr<DownloadSink> sink);

private:
    using Answer = std::shared_ptr<DownloadStream>;

    [[nodiscard]] QCoro::Task<Result<Answer>> ask(QUrl url, qint64 offset, QDeadlineTimer end);
    [[nodiscard]] QCoro::Task<Result<Answer>> askFromWhereItStood(DownloadRequest request,
                                                                  QDeadlineTimer end);
    [[nodiscard]] QCoro::Task<Result<void>> pour(Answer answer, DownloadRequest request,
                                                 std::shared_ptr<DownloadSink> sink);

    ServerTrust m_trust;
    DownloadLimits m_limits;
};

} // namespace quorvane
