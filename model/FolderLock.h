// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QString>

#include <ctime>

namespace quorvane {

/// While it lives, other programs that ask for the same lock wait. The lock is on the folder itself
/// (flock(2)), so that it leaves no file behind and ends with whoever held it, also by a kill.
class FolderLock final
{
public:
    /// How long a holder is waited for that does nothing in the folder, in milliseconds; a slow disk may take
    /// that long for one file. After that, and on file systems without locks, the work goes on without: a
    /// stopped program must not stop this one.
    static constexpr int patience = 600;

    /// The longest that holders are waited for that do work, one after the other, in milliseconds.
    static constexpr int longestWait = 3000;

    explicit FolderLock(const QString &folder);
    ~FolderLock();
    Q_DISABLE_COPY_MOVE(FolderLock)

private:
    /// When a file was last made, renamed or removed in the folder.
    [[nodiscard]] timespec lastChange() const;

    int m_descriptor = -1;
};

} // namespace quorvane
