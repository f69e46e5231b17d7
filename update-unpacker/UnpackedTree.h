// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "core/Result.h"
#include "posix/FileDescriptor.h"

#include <QByteArrayList>

namespace quorvane {

/// What is made below one folder. Paths are relative to it and must have passed `EntryRule`; folders that
/// they imply are made on the way. No symbolic link is ever followed. Fails with the system's errors.
class UnpackedTree final
{
public:
    enum class FileMode {
        /// 0644
        file,
        /// 0755
        program,
    };

    /// Makes nothing outside of `folder`, which is open for reading. The modes are as they are said here
    /// where the process has no umask.
    explicit UnpackedTree(FileDescriptor folder)
        : m_top(std::move(folder))
    {
    }

    [[nodiscard]] Result<void> makeFolder(const QByteArray &path);
    [[nodiscard]] Result<void> makeLink(const QByteArray &path, const QByteArray &target);

    /// A new file, to be written.
    [[nodiscard]] Result<FileDescriptor> makeFile(const QByteArray &path, FileMode mode);

    /// Returns once the names of everything are on the disk; files are flushed by who writes them.
    [[nodiscard]] Result<void> flush();

private:
    [[nodiscard]] Result<FileDescriptor> openFolder(const QByteArray &path);
    [[nodiscard]] Result<FileDescriptor> openFolderOf(const QByteArray &path);

    FileDescriptor m_top;
    /// Paths of the folders that were made.
    QByteArrayList m_folders;
};

} // namespace quorvane
