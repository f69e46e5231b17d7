// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "updates/ArchiveFile.h"

#include "async/Launch.h"
#include "async/OffThread.h"
#include "updates/UpdateError.h"

#include <QFile>

#include <cerrno>
#include <optional>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace quorvane {

namespace {

/// A disk that has to start up, and is busy, is done in this time.
constexpr std::chrono::milliseconds diskTime{60'000};

std::error_code diskError(int number)
{
    if (number == ENOSPC || number == EDQUOT || number == EFBIG)
        return UpdateError::diskFull;
    return {number, std::generic_category()};
}

int lastError(int outcome)
{
    return outcome < 0 ? errno : 0;
}

int writeAt(int file, const QByteArray &bytes, qint64 place)
{
    qsizetype written = 0;
    while (written < bytes.size()) {
        const ssize_t count = ::pwrite(file, bytes.constData() + written,
                                       static_cast<std::size_t>(bytes.size() - written), place + written);
        if (count < 0 && errno != EINTR)
            return errno;
        if (count > 0)
            written += count;
    }
    return 0;
}

struct Opened
{
    FileDescriptor file;
    struct stat state;
    int error;
};

Opened openOrMake(const QByteArray &path)
{
    Opened opened{
        FileDescriptor(::open(path.constData(), O_WRONLY | O_CREAT | O_NOFOLLOW | O_CLOEXEC, 0600)), {}, 0};
    if (!opened.file.isValid() || ::fstat(opened.file.value(), &opened.state) != 0)
        opened.error = errno;
    else if (!S_ISREG(opened.state.st_mode))
        opened.error = EINVAL;
    return opened;
}

QCoro::Task<> removeSometime(QByteArray path)
{
    std::function<int()> job = [path] { return lastError(::unlink(path.constData())); };
    co_await offThread<int>(std::move(job), diskTime);
}

} // namespace

ArchiveFile::ArchiveFile(QString path, FileDescriptor file, qint64 size)
    : m_path(std::move(path))
    , m_file(std::make_shared<const FileDescriptor>(std::move(file)))
    , m_size(size)
{
}

QCoro::Task<Result<std::shared_ptr<ArchiveFile>>> ArchiveFile::open(QString path)
{
    std::function<Opened()> job = [path] { return openOrMake(QFile::encodeName(path)); };
    std::optional<Opened> opened = co_await offThread<Opened>(std::move(job), diskTime);
    if (!opened)
        co_return Failure(std::make_error_code(std::errc::timed_out));
    if (opened->error != 0)
        co_return Failure(diskError(opened->error));
    co_return std::shared_ptr<ArchiveFile>(
        new ArchiveFile(path, std::move(opened->file), opened->state.st_size));
}

QCoro::Task<Result<void>> ArchiveFile::restart()
{
    const auto file = m_file;
    std::function<int()> job = [file] { return lastError(::ftruncate(file->value(), 0)); };
    const Result<void> done = co_await onDisk(m_path, std::move(job));
    if (done)
        m_size = 0;
    co_return Result<void>(done);
}

QCoro::Task<Result<void>> ArchiveFile::take(QByteArray bytes)
{
    const auto file = m_file;
    const qint64 place = m_size;
    std::function<int()> job = [file, bytes, place] { return writeAt(file->value(), bytes, place); };
    const Result<void> done = co_await onDisk(m_path, std::move(job));
    if (done)
        m_size += bytes.size();
    co_return Result<void>(done);
}

QCoro::Task<Result<void>> ArchiveFile::remove()
{
    const QByteArray path = QFile::encodeName(m_path);
    std::function<int()> job = [path] { return lastError(::unlink(path.constData())); };
    const Result<void> done = co_await onDisk(m_path, std::move(job));
    co_return Result<void>(done);
}

/// `job` gives the system's error number, 0 for none.
QCoro::Task<Result<void>> ArchiveFile::onDisk(QString path, std::function<int()> job)
{
    const std::optional<int> error = co_await offThread<int>(std::move(job), diskTime);
    if (!error) {
        // What is still being written must not come into a file of this name later.
        launch(removeSometime(QFile::encodeName(path)));
        co_return Failure(std::make_error_code(std::errc::timed_out));
    }
    if (*error != 0)
        co_return Failure(diskError(*error));
    co_return Result<void>();
}

} // namespace quorvane
