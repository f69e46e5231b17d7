// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "core/Result.h"
#include "posix/FileDescriptor.h"

#include <QByteArray>
#include <QString>

namespace quorvane {

/// Changes the entries of a folder one at a time, each in one step that neither a kill nor a power cut leaves
/// half done. Names have no slash. All fails with the system's error.
class DurableFolder final
{
public:
    /// What cannot be opened fails in every call.
    explicit DurableFolder(const QString &path);

    /// The content of a small regular file; fails with `std::errc::file_too_large` above 64 KiB.
    [[nodiscard]] Result<QByteArray> read(const char *name) const;
    /// The file is on the disk, under its name, when this returns.
    [[nodiscard]] Result<void> write(const char *name, const QByteArray &bytes) const;
    /// Makes or replaces a symbolic link; on the disk with the next `flush`.
    [[nodiscard]] Result<void> link(const char *name, const QString &target) const;
    /// Whether or not it is there; gone from the disk with the next `flush`.
    void remove(const char *name) const;
    [[nodiscard]] bool has(const char *name) const;
    [[nodiscard]] Result<void> flush() const;
    /// The same, some time soon.
    void flushInBackground() const;

    /// Opens an entry, which is never a link that is followed or a pipe that is waited for; see open(2).
    [[nodiscard]] FileDescriptor open(const char *name, int flags) const;
    /// Whether `file` is what has this name now.
    [[nodiscard]] bool isStill(const char *name, const FileDescriptor &file) const;

private:
    FileDescriptor m_folder;
};

} // namespace quorvane
