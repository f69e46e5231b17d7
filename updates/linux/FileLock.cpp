// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "updates/linux/FileLock.h"

#include <cerrno>

#include <sys/file.h>
#include <unistd.h>

namespace quorvane {

bool tryLock(const FileDescriptor &file, LockKind kind)
{
    const int operation = (kind == LockKind::shared ? LOCK_SH : LOCK_EX) | LOCK_NB;
    int result = 0;
    do
        result = ::flock(file.value(), operation);
    while (result != 0 && errno == EINTR);
    return result == 0;
}

bool lockInTime(const FileDescriptor &file, std::chrono::milliseconds patience)
{
    const auto end = std::chrono::steady_clock::now() + patience;
    while (!tryLock(file, LockKind::exclusive)) {
        if (errno != EWOULDBLOCK || std::chrono::steady_clock::now() >= end)
            return false;
        ::usleep(2'000);
    }
    return true;
}

} // namespace quorvane
