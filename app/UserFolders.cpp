// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "app/UserFolders.h"

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

} // namespace quorvane::UserFolders
