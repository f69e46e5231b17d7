// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "calendars/records/FantasticalCache.h"

using namespace Qt::StringLiterals;

namespace quorvane::FantasticalCache {

const QString fileName = u"Fantastical-8.fcdata"_s;

QString defaultDirectory(const QString &home)
{
    return home + u"/Library/Group Containers/85C27NK92C.com.flexibits.fantastical2.mac/Database"_s;
}

} // namespace quorvane::FantasticalCache
