// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "app/ProgramResources.h"

#include <QDir>
#include <QFileInfo>
#include <QStandardPaths>

using namespace Qt::StringLiterals;

namespace quorvane::ProgramResources {

namespace {

/// The first of these files that is there.
QString firstOf(const QStringList &paths)
{
    for (const QString &path : paths) {
        if (QFileInfo::exists(path))
            return QDir::cleanPath(path);
    }
    return {};
}

/// The helper program of that name, which has a folder of its own.
QString helper(const QString &programFolder, const QString &name)
{
    const QString path = u'/' + name + u'/' + name;
    return firstOf({programFolder + path, programFolder + u'/' + QStringLiteral(QUORVANE_RESOURCES) + path});
}

} // namespace

QString calendarReader(const QString &programFolder)
{
    return helper(programFolder, u"calendar-reader"_s);
}

QString updateUnpacker(const QString &programFolder)
{
    return helper(programFolder, u"update-unpacker"_s);
}

QString informationDictionary(const QString &programFolder)
{
    return firstOf({programFolder + u"/share/Quorvane/info.json"_s,
                    programFolder + u'/' + QStringLiteral(QUORVANE_DATA) + u"/info.json"_s});
}

QStringList dataFolders(const QString &programFolder)
{
    QStringList folders = QStandardPaths::standardLocations(QStandardPaths::GenericDataLocation);
    for (QString &folder : folders)
        folder += u"/Quorvane"_s;
    // The first of them is the user's own.
    folders.insert(1, QDir::cleanPath(programFolder + u'/' + QStringLiteral(QUORVANE_DATA)));
    return folders;
}

} // namespace quorvane::ProgramResources
