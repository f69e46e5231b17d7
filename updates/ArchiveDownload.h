// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "core/Result.h"
#include "updates/ArchiveDownloadSetup.h"
#include "updates/UpdateItem.h"

#include <QCoroTask>
#include <QObject>
#include <QString>

#include <functional>
#include <memory>

namespace quorvane {

class HttpsDownload;

/// Fetches the archive of an update into a file. A connection that breaks is taken up again from where it
/// stood; so is what an earlier run of the program has left in the file. Main thread only, which never waits
/// for the disk. What is under way ends with this object.
class ArchiveDownload final : public QObject
{
    Q_OBJECT

public:
    /// Called with the bytes of `UpdateItem::length` that are there, some ten times a second and at the end;
    /// not after `cancel`, and not after this object's end.
    using Progress = std::function<void(qint64 bytes)>;

    explicit ArchiveDownload(ArchiveDownloadSetup setup);
    ~ArchiveDownload() override;

    /// Done when `file`, in a folder that exists, has exactly `item.length` bytes, which nobody has checked
    /// yet. Fails with `UpdateError::downloadFailed` or `downloadCancelled`, and what came is kept to be
    /// continued; with `diskFull` or `wrongLength`, and the file is removed. One at a time: until the task
    /// has ended, a cancelled one too, another call fails with `downloadFailed` and changes nothing.
    [[nodiscard]] QCoro::Task<Result<void>> fetch(UpdateItem item, QString file, Progress progress);

    /// Ends what is under way with `downloadCancelled`.
    void cancel();

private:
    [[nodiscard]] QCoro::Task<Result<void>> fill(UpdateItem item, QString path, Progress progress);

    ArchiveDownloadSetup m_setup;
    std::unique_ptr<HttpsDownload> m_download;
    bool m_isUnderWay = false;
};

} // namespace quorvane
