// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "updates/linux/DurableFolder.h"

#include "posix/SystemError.h"

#include <QFile>

#include <thread>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace quorvane {

namespace {

constexpr qsizetype largestFile = 65'536;

bool writeAll(const FileDescriptor &file, const QByteArray &bytes)
{
    qsizetype written = 0;
    while (written < bytes.size()) {
        const ssize_t count = ::write(file.value(), bytes.constData() + written,
                                      static_cast<std::size_t>(bytes.size() - written));
        if (count < 0 && errno != EINTR)
            return false;
        written += qMax<ssize_t>(count, 0);
    }
    return true;
}

QByteArray temporaryOf(const char *name)
{
    return QByteArray(name) + ".new";
}

} // namespace

DurableFolder::DurableFolder(const QString &path)
    : m_folder(::open(QFile::encodeName(path).constData(), O_RDONLY | O_DIRECTORY | O_CLOEXEC))
{
}

FileDescriptor DurableFolder::open(const char *name, int flags) const
{
    return FileDescriptor(
        ::openat(m_folder.value(), name, flags | O_CLOEXEC | O_NOFOLLOW | O_NONBLOCK, S_IRUSR | S_IWUSR));
}

bool DurableFolder::isStill(const char *name, const FileDescriptor &file) const
{
    struct stat named{};
    struct stat opened{};
    return ::fstatat(m_folder.value(), name, &named, AT_SYMLINK_NOFOLLOW) == 0 &&
           ::fstat(file.value(), &opened) == 0 && named.st_dev == opened.st_dev &&
           named.st_ino == opened.st_ino;
}

bool DurableFolder::has(const char *name) const
{
    return ::faccessat(m_folder.value(), name, F_OK, AT_SYMLINK_NOFOLLOW) == 0;
}

Result<QByteArray> DurableFolder::read(const char *name) const
{
    const FileDescriptor file = open(name, O_RDONLY);
    if (!file.isValid())
        return Failure(systemError());
    QByteArray content(largestFile + 1, Qt::Uninitialized);
    qsizetype done = 0;
    while (done <= largestFile) {
        const ssize_t count =
            ::read(file.value(), content.data() + done, static_cast<std::size_t>(content.size() - done));
        if (count < 0 && errno == EINTR)
            continue;
        if (count < 0)
            return Failure(systemError());
        if (count == 0)
            return content.first(done);
        done += count;
    }
    return Failure(std::make_error_code(std::errc::file_too_large));
}

Result<void> DurableFolder::write(const char *name, const QByteArray &bytes) const
{
    const QByteArray temporary = temporaryOf(name);
    remove(temporary.constData()); // a leftover of a killed writer
    const FileDescriptor file = open(temporary.constData(), O_WRONLY | O_CREAT | O_EXCL);
    if (file.isValid() && writeAll(file, bytes) && ::fsync(file.value()) == 0 &&
        ::renameat(m_folder.value(), temporary.constData(), m_folder.value(), name) == 0)
        return flush();
    const std::error_code error = systemError();
    if (file.isValid())
        remove(temporary.constData());
    return Failure(error);
}

Result<void> DurableFolder::link(const char *name, const QString &target) const
{
    const QByteArray temporary = temporaryOf(name);
    remove(temporary.constData());
    if (::symlinkat(QFile::encodeName(target).constData(), m_folder.value(), temporary.constData()) == 0 &&
        ::renameat(m_folder.value(), temporary.constData(), m_folder.value(), name) == 0)
        return {};
    const std::error_code error = systemError();
    remove(temporary.constData());
    return Failure(error);
}

void DurableFolder::remove(const char *name) const
{
    ::unlinkat(m_folder.value(), name, 0);
}

Result<void> DurableFolder::flush() const
{
    if (::fsync(m_folder.value()) != 0)
        return Failure(systemError());
    return {};
}

void DurableFolder::flushInBackground() const
{
    const int folder = ::fcntl(m_folder.value(), F_DUPFD_CLOEXEC, 0);
    try {
        std::thread([folder] {
            ::fsync(folder);
            ::close(folder);
        }).detach();
    } catch (const std::system_error &) {
        ::close(folder); // No thread to be had: the kernel writes it in its own time.
    }
}

} // namespace quorvane
