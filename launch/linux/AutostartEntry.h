// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "launch/LoginItem.h"

#include <QString>
#include <QStringList>

namespace quorvane {

/// A file in the autostart folder (Desktop Application Autostart Specification 0.5).
class AutostartEntry final : public LoginItem
{
public:
    static constexpr const char *fileName = "me.tarnel.Quorvane.desktop";

    /// `executable` is the absolute path of what is to be started. `configurationFolders` are the user's own,
    /// then the system's; entries are in their subfolder "autostart".
    AutostartEntry(QString executable, const QStringList &configurationFolders);

    /// $XDG_CONFIG_HOME and $XDG_CONFIG_DIRS.
    [[nodiscard]] static QStringList systemConfigurationFolders();

    /// Fails when the file cannot be written, or an executable has a path that no entry can name.
    [[nodiscard]] Result<void> add() override;
    /// Where the system has an entry of the same name, the user's stays and hides it: nothing else keeps it
    /// from being obeyed.
    [[nodiscard]] Result<void> remove() override;
    /// What others have written to hide the system's entry stays.
    [[nodiscard]] Result<void> restore() override;

private:
    [[nodiscard]] bool systemHasEntry() const;
    [[nodiscard]] Result<void> removeOwn() const;
    [[nodiscard]] Result<void> write(const QByteArray &content) const;

    QString m_executable;
    QString m_entry;
    QStringList m_systemEntries;
};

} // namespace quorvane
