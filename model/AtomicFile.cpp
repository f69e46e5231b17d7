// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "model/AtomicFile.h"

#include <QFile>

#include <cerrno>
#include <cstdio>
#include <thread>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace quorvane::AtomicFile {

namespace {

std::error_code lastError()
{
    return {errno, std::generic_category()};
}

std::error_code writeAll(int descriptor, const QByteArray &bytes)
{
    qsizetype written = 0;
    while (written < bytes.size()) {
        const ssize_t n = ::write(descriptor, bytes.constData() + written,
                                  static_cast<std::size_t>(bytes.size() - written));
        if (n < 0 && errno != EINTR)
            return lastError();
        if (n > 0)
            written += n;
    }
    return {};
}

void syncInBackground(int descriptor)
{
    try {
        std::thread([descriptor] {
            ::fdatasync(descriptor);
            ::close(descriptor);
        }).detach();
    } catch (const std::system_error &) {
        ::close(descriptor); // No thread to be had: the kernel writes the bytes in its own time.
    }
}

} // namespace

std::error_code write(const QString &path, const QByteArray &bytes)
{
    const QByteArray target = QFile::encodeName(path);
    const QByteArray temporary = target + ".new";
    // A leftover of a killed writer, or a link that somebody laid there, is not written through.
    ::unlink(temporary.constData());
    const int descriptor =
        ::open(temporary.constData(), O_WRONLY | O_CREAT | O_EXCL | O_NOFOLLOW | O_CLOEXEC, 0600);
    if (descriptor < 0)
        return lastError();
    std::error_code error = writeAll(descriptor, bytes);
    if (!error &&
        (::fchmod(descriptor, 0600) != 0 || ::rename(temporary.constData(), target.constData()) != 0))
        error = lastError();
    if (error) {
        ::close(descriptor);
        ::unlink(temporary.constData());
        return error;
    }
    syncInBackground(descriptor);
    return {};
}

} // namespace quorvane::AtomicFile
