// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "app/ProgramResources.h"

#include <QDir>
#include <QFileInfo>
#include <QStandardPaths>

using namespace Qt::StringLiterals;

namespace quorvane::ProgramResources {

QString calendarReader(const QString &programFolder)
{
    for (const QString &resources : {u"."_s, QStringLiteral(QUORVANE_RESOURCES)}) {
        const QString path = programFolder + u'/' + resources + u"/calendar-reader/calendar-reader"_s;
        if (QFileInfo::exists(path))
            return QDir::cleanPath(path);
    }
    return {};
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
