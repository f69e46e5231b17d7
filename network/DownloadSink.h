// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "core/Result.h"

#include <QByteArray>
#include <QCoroTask>

namespace quorvane {

/// Where the body of a download goes, piece by piece. Main thread only; what takes time is done elsewhere. No
/// piece comes before the one before it was taken, and what is received meanwhile is bounded.
class DownloadSink
{
public:
    DownloadSink() = default;
    virtual ~DownloadSink() = default;
    Q_DISABLE_COPY_MOVE(DownloadSink)

    /// The body comes from its first byte on: what was taken before is void.
    [[nodiscard]] virtual QCoro::Task<Result<void>> restart() = 0;
    /// The body's next bytes. A failure ends the download.
    [[nodiscard]] virtual QCoro::Task<Result<void>> take(QByteArray bytes) = 0;
};

} // namespace quorvane
