// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "core/Result.h"
#include "posix/FileDescriptor.h"
#include "updates/UpdateItem.h"

#include <QString>

#include <memory>
#include <mutex>

namespace quorvane {

/// ROOT/.updates: where archives arrive and versions are made ready, on the file system that they will be
/// used on. Belongs to one process at a time.
class UpdatesFolder final
{
public:
    /// Makes the folder if need be, and takes its lock until every owner of the result is gone. Fails with
    /// `UpdateError::busy`, `diskFull`, `folderReadOnly` or `installationFailed`.
    [[nodiscard]] static Result<std::shared_ptr<UpdatesFolder>> open(const QString &root);

    UpdatesFolder(QString path, FileDescriptor lock);
    ~UpdatesFolder() = default;
    Q_DISABLE_COPY_MOVE(UpdatesFolder)

    /// Where the archive of `item` is downloaded to; the same in every run of the program.
    [[nodiscard]] QString archive(const UpdateItem &item) const;
    void removeArchivesBut(const QString &kept) const;
    /// Removes archives that were last written so many days ago.
    void removeArchivesOlderThan(int days) const;

    /// A new, empty folder that only this user can enter. Fails with `diskFull` or `installationFailed`.
    [[nodiscard]] Result<QString> makeWorkshop() const;
    /// Removes all such folders, also those of killed processes, as far as that is possible.
    void removeWorkshops() const;

    /// Whether so many bytes find room, and some more for everybody else.
    [[nodiscard]] bool hasRoomFor(qint64 bytes) const;

    /// Held while ROOT/current changes, and while it is decided which versions are not needed.
    [[nodiscard]] std::mutex &choice() { return m_choice; }

private:
    QString m_path;
    FileDescriptor m_lock;
    std::mutex m_choice;
};

} // namespace quorvane
