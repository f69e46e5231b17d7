// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "alert/linux/ShellOverview.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusVariant>

using namespace Qt::StringLiterals;

namespace quorvane {

namespace {

const QString shell = u"org.gnome.Shell"_s;
const QString shellPath = u"/org/gnome/Shell"_s;
const QString overviewActive = u"OverviewActive"_s;
const QString properties = u"org.freedesktop.DBus.Properties"_s;

} // namespace

ShellOverview::ShellOverview(QObject *parent)
    : QObject(parent)
{
    // Without the shell's name, whose owner Qt would wait for; the path is its own.
    QDBusConnection::sessionBus().connect({}, shellPath, properties, u"PropertiesChanged"_s, this,
                                          SLOT(noteChange(QString, QVariantMap)));
}

void ShellOverview::leave() const
{
    QDBusMessage change = QDBusMessage::createMethodCall(shell, shellPath, properties, u"Set"_s);
    change << shell << overviewActive << QVariant::fromValue(QDBusVariant(false));
    change.setAutoStartService(false);
    QDBusConnection::sessionBus().send(change);
}

void ShellOverview::noteChange(const QString &interface, const QVariantMap &changed)
{
    if (interface == shell && changed.value(overviewActive).toBool())
        Q_EMIT entered();
}

} // namespace quorvane
