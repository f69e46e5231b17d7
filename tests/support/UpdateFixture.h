// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "process/linux/PosixProcessRunner.h"
#include "tests/support/InstalledTree.h"
#include "tests/support/SignedArchive.h"
#include "updates/linux/VersionedInstaller.h"

#include <QCoroTask>

#include <memory>

#include <sys/statvfs.h>
#include <unistd.h>

namespace quorvane {

/// An installation of version 811, and archives of later ones, with the real unpacker and the real runner.
class UpdateFixture
{
public:
    UpdateFixture()
        : tree(quickFolder() + QStringLiteral("/versions-XXXXXX"))
    {
        tree.add(QStringLiteral("811"));
        tree.makeCurrent(QStringLiteral("811"));
    }

    /// The archive of an installation that holds one version.
    [[nodiscard]] static QByteArray archive(const QString &version, const QString &number,
                                            const QByteArray &program)
    {
        const QTemporaryDir folder;
        const QString top = folder.filePath(QStringLiteral("Quorvane"));
        const QString place = QStringLiteral("versions/") + version;
        InstalledTree::writeVersion(top + u'/' + place, number, program);
        QFile::link(place, top + QStringLiteral("/current"));
        QFile::link(QStringLiteral("current/bin/quorvane"), top + QStringLiteral("/quorvane"));
        return archiveOf(folder.path());
    }
    [[nodiscard]] static QByteArray archive(const QString &version)
    {
        return archive(version, version, InstalledTree::script(version));
    }

    /// As the program of that version makes it.
    [[nodiscard]] VersionedInstaller::Configuration setup(const QString &own = QStringLiteral("811")) const
    {
        return {.installed = tree.seenBy(own),
                .key = key.publicKey(),
                .unpacker = QStringLiteral(QUORVANE_UNPACKER),
                .runner = std::make_shared<PosixProcessRunner>()};
    }

    /// What comes of an archive that was downloaded for `item`.
    [[nodiscard]] static Result<void> prepared(VersionedInstaller &installer, const UpdateItem &item,
                                               const QByteArray &bytes)
    {
        const Result<QString> file = installer.archiveFile(item);
        if (!file)
            return Failure(file.error());
        InstalledTree::write(*file, bytes);
        return QCoro::waitFor(installer.prepare(item));
    }

    /// Where a flush of the whole file system does not wait for what others write, if programs can be run
    /// there.
    [[nodiscard]] static QString quickFolder()
    {
        struct statvfs memory{};
        const bool isUsable = ::access("/dev/shm", W_OK) == 0 && ::statvfs("/dev/shm", &memory) == 0 &&
                              (memory.f_flag & ST_NOEXEC) == 0;
        return isUsable ? QStringLiteral("/dev/shm") : QDir::tempPath();
    }

    InstalledTree tree;
    SigningKey key;
};

} // namespace quorvane
