// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "update-unpacker/UnpackedTree.h"

#include "posix/SystemError.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>

namespace quorvane {
namespace {

constexpr mode_t folderMode = 0755;

/// The folder `name` in `folder`; it may be of any other kind only by somebody else's doing.
FileDescriptor step(const FileDescriptor &folder, const QByteArray &name)
{
    return FileDescriptor(
        ::openat(folder.value(), name.constData(), O_PATH | O_DIRECTORY | O_NOFOLLOW | O_CLOEXEC));
}

FileDescriptor self(const FileDescriptor &folder, int flags)
{
    return FileDescriptor(::openat(folder.value(), ".", flags | O_DIRECTORY | O_CLOEXEC));
}

QByteArray nameOf(const QByteArray &path)
{
    return path.mid(path.lastIndexOf('/') + 1);
}

} // namespace

Result<void> UnpackedTree::makeFolder(const QByteArray &path)
{
    const Result<FileDescriptor> folder = openFolder(path);
    if (!folder)
        return Failure(folder.error());
    return {};
}

Result<void> UnpackedTree::makeLink(const QByteArray &path, const QByteArray &target)
{
    const Result<FileDescriptor> folder = openFolderOf(path);
    if (!folder)
        return Failure(folder.error());
    if (::symlinkat(target.constData(), folder->value(), nameOf(path).constData()) != 0)
        return Failure(systemError());
    return {};
}

Result<FileDescriptor> UnpackedTree::makeFile(const QByteArray &path, FileMode mode)
{
    const Result<FileDescriptor> folder = openFolderOf(path);
    if (!folder)
        return Failure(folder.error());
    FileDescriptor file(::openat(folder->value(), nameOf(path).constData(),
                                 O_WRONLY | O_CREAT | O_EXCL | O_NOFOLLOW | O_CLOEXEC,
                                 mode == FileMode::program ? 0755 : 0644));
    if (!file.isValid())
        return Failure(systemError());
    return file;
}

Result<void> UnpackedTree::flush()
{
    for (const QByteArray &path : QByteArrayList(m_folders)) {
        const Result<FileDescriptor> folder = openFolder(path);
        if (!folder)
            return Failure(folder.error());
        const FileDescriptor open = self(*folder, O_RDONLY);
        if (!open.isValid() || ::fsync(open.value()) != 0)
            return Failure(systemError());
    }
    if (::fsync(m_top.value()) != 0)
        return Failure(systemError());
    return {};
}

Result<FileDescriptor> UnpackedTree::openFolder(const QByteArray &path)
{
    FileDescriptor folder = self(m_top, O_PATH);
    QByteArray way;
    for (const QByteArray &name : path.split('/')) {
        if (!folder.isValid())
            return Failure(systemError());
        way += name;
        if (::mkdirat(folder.value(), name.constData(), folderMode) == 0)
            m_folders.append(way);
        else if (errno != EEXIST)
            return Failure(systemError());
        folder = step(folder, name);
        way += '/';
    }
    if (!folder.isValid())
        return Failure(systemError());
    return folder;
}

Result<FileDescriptor> UnpackedTree::openFolderOf(const QByteArray &path)
{
    return openFolder(path.left(path.lastIndexOf('/')));
}

} // namespace quorvane
