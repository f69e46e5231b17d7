// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "tests/calendars/linux/StoreSeed.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

using namespace Qt::StringLiterals;

namespace quorvane::StoreSeed {

void write(const QString &path, const QByteArray &content)
{
    QDir().mkpath(QFileInfo(path).path());
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly) || file.write(content) != content.size())
        qFatal("Cannot write %s.", qPrintable(path));
}

QString inFolder(const QString &root, const QString &name, const QByteArray &calendar)
{
    write(root + u'/' + name + u"/calendar.ics"_s, calendar);
    write(root + u'/' + name + u"/color"_s, "#62A0EAFF\n");
    return u"folder:"_s + QFileInfo(root + u'/' + name).canonicalFilePath();
}

QString inEvolution(const QString &name, const QByteArray &calendar, const QString &ownAddress)
{
    const QString sources = qEnvironmentVariable("XDG_CONFIG_HOME") + u"/evolution/sources/"_s;
    write(sources + u"work-account.source"_s,
          "[Data Source]\nDisplayName=Work account\nEnabled=true\nParent=\n\n"
          "[Collection]\nBackendName=none\nCalendarEnabled=true\n");
    write(sources + name + u".source"_s,
          "[Data Source]\nDisplayName=Calendar " + name.toUtf8() +
              "\nEnabled=true\nParent=work-account\n\n[Calendar]\nBackendName=local\nColor=#62A0EA\n\n"
              "[Local Backend]\nEmailAddress=" +
              ownAddress.toUtf8() + "\n");
    write(qEnvironmentVariable("XDG_DATA_HOME") + u"/evolution/calendar/"_s + name + u"/calendar.ics"_s,
          calendar);
    return u"evolution:"_s + name;
}

} // namespace quorvane::StoreSeed
