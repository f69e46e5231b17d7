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

} // namespace

QString calendarReader(const QString &programFolder)
{
    const QString reader = u"/calendar-reader/calendar-reader"_s;
    return firstOf(
        {programFolder + reader, programFolder + u'/' + QStringLiteral(QUORVANE_RESOURCES) + reader});
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
