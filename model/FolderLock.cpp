// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "model/FolderLock.h"

#include <QFile>

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>

namespace quorvane {

FolderLock::FolderLock(const QString &folder)
    : m_descriptor(::open(QFile::encodeName(folder).constData(), O_RDONLY | O_DIRECTORY | O_CLOEXEC))
{
    constexpr int pause = 2;
    timespec seen = lastChange();
    int idle = 0;
    for (int waited = 0; waited < longestWait && idle < patience; waited += pause) {
        if (::flock(m_descriptor, LOCK_EX | LOCK_NB) == 0 || (errno != EWOULDBLOCK && errno != EINTR))
            return;
        ::usleep(pause * 1000);
        const timespec now = lastChange();
        const bool isAtWork = now.tv_sec != seen.tv_sec || now.tv_nsec != seen.tv_nsec;
        idle = isAtWork ? 0 : idle + pause;
        seen = now;
    }
}

FolderLock::~FolderLock()
{
    if (m_descriptor >= 0)
        ::close(m_descriptor);
}

timespec FolderLock::lastChange() const
{
    struct stat status{};
    return ::fstat(m_descriptor, &status) == 0 ? status.st_mtim : timespec{};
}

} // namespace quorvane
