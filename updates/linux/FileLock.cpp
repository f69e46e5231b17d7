// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "updates/linux/FileLock.h"

#include <cerrno>

#include <sys/file.h>
#include <unistd.h>

namespace quorvane {

LockOutcome tryLock(const FileDescriptor &file, LockKind kind)
{
    const int operation = (kind == LockKind::shared ? LOCK_SH : LOCK_EX) | LOCK_NB;
    int result = 0;
    do
        result = ::flock(file.value(), operation);
    while (result != 0 && errno == EINTR);
    if (result == 0)
        return LockOutcome::taken;
    return errno == EWOULDBLOCK ? LockOutcome::refused : LockOutcome::impossible;
}

LockOutcome lockInTime(const FileDescriptor &file, std::chrono::milliseconds patience)
{
    const auto end = std::chrono::steady_clock::now() + patience;
    LockOutcome outcome = tryLock(file, LockKind::exclusive);
    while (outcome == LockOutcome::refused && std::chrono::steady_clock::now() < end) {
        ::usleep(2'000);
        outcome = tryLock(file, LockKind::exclusive);
    }
    return outcome;
}

} // namespace quorvane
