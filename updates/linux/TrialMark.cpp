// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "updates/linux/TrialMark.h"

#include "updates/linux/DurableFolder.h"
#include "updates/linux/FileLock.h"

#include <cerrno>

#include <fcntl.h>
#include <unistd.h>

namespace quorvane {

namespace {

constexpr const char *running = "trial.running";
constexpr const char *seen = "trial.seen";

/// Empty where the system does not say.
QByteArray bootId()
{
    return DurableFolder(QStringLiteral("/proc/sys/kernel/random"))
        .read("boot_id")
        .value_or(QByteArray())
        .trimmed();
}

QByteArray bootIn(const FileDescriptor &mark)
{
    QByteArray content(64, Qt::Uninitialized);
    const ssize_t count = ::pread(mark.value(), content.data(), std::size_t(content.size()), 0);
    return content.first(qMax<ssize_t>(count, 0));
}

bool isOfThisBoot(const FileDescriptor &mark)
{
    const QByteArray noted = bootIn(mark);
    const QByteArray now = bootId();
    return noted.isEmpty() || now.isEmpty() || noted == now;
}

/// Flushed, because it is for the time after a power cut. What cannot be written is of this boot.
void noteBoot(const FileDescriptor &mark)
{
    const QByteArray boot = bootId();
    static_cast<void>(::ftruncate(mark.value(), 0) == 0 &&
                      ::pwrite(mark.value(), boot.constData(), std::size_t(boot.size()), 0) > 0 &&
                      ::fsync(mark.value()) == 0);
}

} // namespace

TrialMark TrialMark::take(const DurableFolder &root)
{
    FileDescriptor mark = root.open(running, O_RDWR | O_CREAT | O_EXCL);
    const bool isNew = mark.isValid();
    if (!isNew && errno == EEXIST) {
        mark = root.open(running, O_RDWR);
        if (!mark.isValid() && errno == ENOENT)
            return take(root); // gone meanwhile
    }
    if (!mark.isValid())
        return {Finding::left, {}};
    if (tryLock(mark, LockKind::exclusive) == LockOutcome::refused)
        return {Finding::inUse, {}};
    if (!root.isStill(running, mark))
        return take(root); // whoever held it has just put the trial off
    if (!isNew && isOfThisBoot(mark))
        return {Finding::left, {}};
    noteBoot(mark);
    return {Finding::first, std::move(mark)};
}

void TrialMark::noteSeen(const DurableFolder &root)
{
    static_cast<void>(root.open(seen, O_WRONLY | O_CREAT));
}

bool TrialMark::isSeen(const DurableFolder &root)
{
    return root.has(seen);
}

bool TrialMark::isLeft(const DurableFolder &root)
{
    const FileDescriptor mark = root.open(running, O_RDWR);
    return mark.isValid() && tryLock(mark, LockKind::exclusive) != LockOutcome::refused && isOfThisBoot(mark);
}

bool TrialMark::isLeftUnseen(const DurableFolder &root)
{
    return !isSeen(root) && isLeft(root);
}

void TrialMark::leave(const DurableFolder &root)
{
    static_cast<void>(root.open(running, O_RDWR | O_CREAT));
}

void TrialMark::remove(const DurableFolder &root)
{
    root.remove(running);
}

void TrialMark::removeUnused(const DurableFolder &root)
{
    const FileDescriptor mark = root.open(running, O_RDWR);
    if (mark.isValid() && tryLock(mark, LockKind::exclusive) != LockOutcome::refused)
        root.remove(running);
}

void TrialMark::removeAll(const DurableFolder &root)
{
    root.remove(running);
    root.remove(seen);
}

} // namespace quorvane
