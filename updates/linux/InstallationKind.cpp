// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "updates/linux/InstallationKind.h"

#include "updates/linux/InstalledVersions.h"

#include <QFileInfo>

using namespace Qt::StringLiterals;

namespace quorvane {

InstallationKind installationKind(const QString &executable, const QProcessEnvironment &environment,
                                  const QString &flatpakMark)
{
    const bool isSandboxed = QFileInfo::exists(flatpakMark) || environment.contains(u"SNAP"_s) ||
                             environment.contains(u"APPIMAGE"_s);
    const bool isSystems = executable.startsWith(u"/usr/") && !executable.startsWith(u"/usr/local/");
    // A copy that keeps itself current may have been started from within an AppImage, say from a terminal.
    if (!isSystems && InstalledVersions::ofExecutable(executable))
        return InstallationKind::itself;
    return isSandboxed ? InstallationKind::sandbox : InstallationKind::packageManager;
}

} // namespace quorvane
