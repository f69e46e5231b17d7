// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "app/ProgramResources.h"

#include <QDir>
#include <QFileInfo>

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

} // namespace quorvane::ProgramResources
