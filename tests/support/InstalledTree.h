// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "updates/linux/InstalledVersions.h"

#include <QDir>
#include <QDirIterator>
#include <QFile>
#include <QFileInfo>
#include <QTemporaryDir>

#include <map>
#include <unistd.h>

namespace quorvane {

/// An installation of several versions, each of them a small shell script.
class InstalledTree
{
public:
    /// What the program of a version does, unless a test says otherwise: it says which one it is.
    static QByteArray script(const QString &version)
    {
        return "#!/bin/sh\n[ \"$1\" = --self-test ] || echo " + version.toUtf8() + "\n";
    }

    explicit InstalledTree(const QString &pattern = QDir::tempPath() + QStringLiteral("/versions-XXXXXX"))
        : m_folder(pattern)
    {
        QDir(root()).mkpath(QStringLiteral("versions"));
    }

    [[nodiscard]] QString root() const { return m_folder.path(); }
    [[nodiscard]] QString path(const QString &name) const { return m_folder.filePath(name); }

    static void write(const QString &path, const QByteArray &bytes)
    {
        QDir().mkpath(QFileInfo(path).path());
        QFile file(path);
        if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size())
            qFatal("%s cannot be written", qPrintable(path));
    }
    static QByteArray read(const QString &path)
    {
        QFile file(path);
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    }
    static void writeVersion(const QString &folder, const QString &number, const QByteArray &program)
    {
        const QString executable = folder + QStringLiteral("/bin/quorvane");
        write(executable, program);
        QFile::setPermissions(executable, QFile::permissions(executable) | QFile::ExeUser);
        write(folder + QStringLiteral("/share/Quorvane/info.json"),
              "{\"CFBundleVersion\": \"" + number.toUtf8() + "\"}");
    }

    void add(const QString &version) const
    {
        writeVersion(path(QStringLiteral("versions/") + version), version, script(version));
    }
    void makeCurrent(const QString &version) const
    {
        QFile::remove(path(QStringLiteral("current")));
        QFile::link(QStringLiteral("versions/") + version, path(QStringLiteral("current")));
    }
    /// As the program of that version sees it.
    [[nodiscard]] InstalledVersions seenBy(const QString &version) const
    {
        return InstalledVersions::ofExecutable(
                   path(QStringLiteral("versions/") + version + QStringLiteral("/bin/quorvane")))
            .value();
    }

    /// Every name with what it stands for: bytes, or a link's target.
    [[nodiscard]] std::map<QString, QByteArray> content() const
    {
        std::map<QString, QByteArray> found;
        QDirIterator entries(root(), QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot,
                             QDirIterator::Subdirectories);
        while (entries.hasNext()) {
            const QFileInfo entry(entries.next());
            found[entry.filePath()] = entry.isSymLink() ? entry.symLinkTarget().toUtf8()
                                      : entry.isDir()   ? QByteArray("folder")
                                                        : read(entry.filePath());
        }
        return found;
    }

private:
    QTemporaryDir m_folder;
};

} // namespace quorvane
