// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "network/DownloadSink.h"
#include "posix/FileDescriptor.h"

#include <QString>

#include <functional>
#include <memory>

namespace quorvane {

/// The file that an archive is downloaded to. All that touches the disk is done on other threads, within a
/// time bound: writing waits for a slow disk as soon as the system holds enough unwritten bytes. Fails with
/// `UpdateError::diskFull`, with the system's error, or with `std::errc::timed_out`. Whoever asks keeps this
/// alive until the answer.
class ArchiveFile final : public DownloadSink
{
public:
    /// Opens what is at `path`, or makes an empty file.
    [[nodiscard]] static QCoro::Task<Result<std::shared_ptr<ArchiveFile>>> open(QString path);

    /// Bytes that are there.
    [[nodiscard]] qint64 size() const { return m_size; }

    [[nodiscard]] QCoro::Task<Result<void>> restart() override;
    [[nodiscard]] QCoro::Task<Result<void>> take(QByteArray bytes) override;

    /// Takes the file away, whoever else has made it.
    [[nodiscard]] QCoro::Task<Result<void>> remove();

private:
    ArchiveFile(QString path, FileDescriptor file, qint64 size);

    [[nodiscard]] static QCoro::Task<Result<void>> onDisk(QString path, std::function<int()> job);

    QString m_path;
    /// Shared with the threads, the last of which may outlive this.
    std::shared_ptr<const FileDescriptor> m_file;
    qint64 m_size;
};

} // namespace quorvane
