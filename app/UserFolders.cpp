// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "app/UserFolders.h"

#include <QDir>
#include <QFileInfo>
#include <QStandardPaths>

using namespace Qt::StringLiterals;

namespace quorvane::UserFolders {

namespace {

QString below(QStandardPaths::StandardLocation location, const QString &name)
{
    return QStandardPaths::writableLocation(location) + u"/Quorvane/"_s + name;
}

} // namespace

QString settingsFile()
{
    return below(QStandardPaths::GenericConfigLocation, u"settings.ini"_s);
}

QString ledgerFile()
{
    return below(QStandardPaths::GenericDataLocation, u"acknowledgments.json"_s);
}

QString calendarFolder()
{
    return below(QStandardPaths::GenericDataLocation, u"calendars"_s);
}

// Not by QStandardPaths, which falls back to a folder that everybody may make.
QString runtimeFolder()
{
    const QString folder = qEnvironmentVariable("XDG_RUNTIME_DIR");
    if (QDir::isAbsolutePath(folder) && QFileInfo(folder).isDir() && QFileInfo(folder).isWritable())
        return folder;
    const QString data =
        QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation) + u"/Quorvane"_s;
    QDir().mkpath(data);
    return data;
}

} // namespace quorvane::UserFolders
