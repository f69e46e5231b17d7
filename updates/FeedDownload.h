// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "core/Result.h"
#include "network/DownloadLimits.h"
#include "network/HttpsDownload.h"
#include "network/ServerTrust.h"

#include <QByteArray>
#include <QCoroTask>
#include <QUrl>

namespace quorvane {

/// Fetches the list of newer versions. Main thread only; what is under way ends with this object.
class FeedDownload final
{
public:
    /// The longest feed that counts, in bytes.
    static constexpr qint64 longestFeed = 4'000'000;

    /// The limit for the whole is 30 seconds unless `limits` says otherwise.
    explicit FeedDownload(ServerTrust trust, DownloadLimits limits = defaultLimits);

    /// The feed's bytes, whatever they are. Fails with `UpdateError::feedUnreachable`, or with `feedInvalid`
    /// when there are too many.
    [[nodiscard]] QCoro::Task<Result<QByteArray>> fetch(QUrl feed);

private:
    static constexpr DownloadLimits defaultLimits{.stall = std::chrono::seconds(30),
                                                  .whole = std::chrono::seconds(30)};

    HttpsDownload m_download;
};

} // namespace quorvane
