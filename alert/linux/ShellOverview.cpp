// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "alert/linux/ShellOverview.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusVariant>

namespace quorvane {

void leaveShellOverview()
{
    const QString shell = QStringLiteral("org.gnome.Shell");
    QDBusMessage change = QDBusMessage::createMethodCall(shell, QStringLiteral("/org/gnome/Shell"),
                                                         QStringLiteral("org.freedesktop.DBus.Properties"),
                                                         QStringLiteral("Set"));
    change << shell << QStringLiteral("OverviewActive") << QVariant::fromValue(QDBusVariant(false));
    change.setAutoStartService(false);
    QDBusConnection::sessionBus().send(change);
}

} // namespace quorvane
