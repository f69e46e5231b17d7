// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QProcessEnvironment>
#include <QString>

namespace quorvane {

/// Who keeps the copy of the program current that runs.
enum class InstallationKind {
    /// The system's package manager, or whoever built it.
    packageManager,
    /// The sandbox that it came in: Flatpak, Snap or AppImage.
    sandbox,
    /// The program itself (see `InstalledVersions`).
    itself,
};

/// `executable` is absolute and without symbolic links. `flatpakMark` is the file that Flatpak lays into each
/// of its sandboxes.
[[nodiscard]] InstallationKind
installationKind(const QString &executable, const QProcessEnvironment &environment,
                 const QString &flatpakMark = QStringLiteral("/.flatpak-info"));

} // namespace quorvane
