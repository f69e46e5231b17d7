// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QUrl>

#include <functional>

namespace quorvane {

/// What is to be downloaded.
struct DownloadRequest
{
    QUrl url;
    /// The longest body that counts, in bytes.
    qint64 longest = 0;
    /// How many of its bytes an earlier download has left in the sink; they are asked for again only when the
    /// server does not go on from there.
    qint64 offset = 0;
    /// Called with the bytes that the sink has, some ten times a second and at the end; may be empty.
    std::function<void(qint64 bytes)> progress;
};

} // namespace quorvane
