// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QString>

#include <optional>

namespace quorvane {

/// An installation that can hold several versions of the program beside each other, in a folder ROOT:
///
///     ROOT/versions/812/bin/quorvane     a version, in a folder that is named after the build's number
///     ROOT/current -> versions/812       the one that is started
///     ROOT/previous -> versions/811      the one that was started before; only after an update
class InstalledVersions final
{
public:
    /// The installation that the executable at `path`, absolute and without symbolic links, is part of;
    /// absent when it is part of none.
    [[nodiscard]] static std::optional<InstalledVersions> ofExecutable(const QString &path);

    /// ROOT.
    [[nodiscard]] const QString &root() const { return m_root; }
    /// The version that the executable belongs to, as the folder is named.
    [[nodiscard]] const QString &own() const { return m_own; }
    /// The version that is started from now on, whether or not it is there; absent when ROOT/current does not
    /// name one.
    [[nodiscard]] std::optional<QString> currentVersion() const;
    /// The version that was current before the present one, likewise.
    [[nodiscard]] std::optional<QString> previousVersion() const;

    [[nodiscard]] QString folder(const QString &version) const;
    /// Path of the program's executable in that version.
    [[nodiscard]] QString executable(const QString &version) const;
    [[nodiscard]] bool isExecutable(const QString &version) const;
    /// ROOT/current/bin/quorvane: the one to name wherever a later version is to be started.
    [[nodiscard]] QString currentExecutable() const;

    /// Whether this user can add versions and choose among them; not where ROOT/current names none. Asks for
    /// the rights and leaves nothing behind; what an immutable folder or a full disk forbids only shows when
    /// it is tried.
    [[nodiscard]] bool canChange() const;

    bool operator==(const InstalledVersions &) const = default;

private:
    InstalledVersions(QString root, QString own);
    [[nodiscard]] std::optional<QString> versionBehind(const QString &link) const;

    QString m_root;
    QString m_own;
};

} // namespace quorvane
