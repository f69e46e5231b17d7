// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "model/FolderLock.h"

#include <QFile>

#include <fcntl.h>
#include <sys/file.h>

#include <cerrno>
#include <chrono>
#include <future>
#include <system_error>
#include <thread>
#include <utility>

namespace quorvane {

namespace {

using Folder = std::shared_ptr<const FileDescriptor>;

Folder open(const QString &path)
{
    return std::make_shared<const FileDescriptor>(
        ::open(QFile::encodeName(path).constData(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
}

/// Stands in the line of those who wait. Asking now and then instead would be a matter of luck among several.
/// Who gives up waiting leaves the place: the lock is let go of as soon as it is held.
std::future<void> turn(const Folder &folder)
{
    std::promise<void> held;
    std::future<void> whenHeld = held.get_future();
    std::thread([folder, held = std::move(held)]() mutable {
        while (::flock(folder->value(), LOCK_EX) != 0 && errno == EINTR) {
        }
        held.set_value();
    }).detach();
    return whenHeld;
}

} // namespace

FolderLock::FolderLock(const QString &folder)
    : m_folder(open(folder))
{
    if (::flock(m_folder->value(), LOCK_EX | LOCK_NB) == 0 || errno != EWOULDBLOCK)
        return;
    try {
        turn(m_folder).wait_for(std::chrono::milliseconds(patience));
    } catch (const std::system_error &) {
        return; // No thread to be had: as if it had been waited for in vain.
    }
}

FolderLock::~FolderLock()
{
    ::flock(m_folder->value(), LOCK_UN);
}

} // namespace quorvane
