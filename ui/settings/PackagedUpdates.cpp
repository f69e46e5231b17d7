// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "ui/settings/PackagedUpdates.h"

#include <QCoreApplication>

namespace quorvane {

QString PackagedUpdates::version() const
{
    const QString version = QCoreApplication::applicationVersion();
    return tr("Version %1").arg(version.isEmpty() ? tr("Development") : version);
}

QString PackagedUpdates::keeper() const
{
    return tr("This copy of Quorvane is kept current by the way it was installed.");
}

} // namespace quorvane
