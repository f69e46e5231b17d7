// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "posix/FileDescriptor.h"

#include <QString>

#include <memory>

namespace quorvane {

/// While it lives, other programs that ask for the same lock wait. The lock is on the folder itself
/// (flock(2)), so that it leaves no file behind and ends with whoever held it, also by a kill.
class FolderLock final
{
public:
    /// The longest that others are waited for, in milliseconds: on a slow disk each of them takes a while.
    /// After that, and on file systems without locks, the work goes on without: a stopped program must not
    /// stop this one.
    static constexpr int patience = 2000;

    explicit FolderLock(const QString &folder);
    ~FolderLock();
    Q_DISABLE_COPY_MOVE(FolderLock)

private:
    std::shared_ptr<const FileDescriptor> m_folder;
};

} // namespace quorvane
