// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "updates/linux/InstalledVersions.h"

#include <QString>
#include <QStringList>

#include <memory>

namespace quorvane {

class DurableFolder;
class UpdatesFolder;

/// Removes what updates have left behind (see `VersionedInstaller::clean`). Works away from the main thread
/// and holds all that it needs.
class VersionCleaning final
{
public:
    VersionCleaning(InstalledVersions installed, std::shared_ptr<UpdatesFolder> folder);

    void perform() const;

private:
    [[nodiscard]] bool isTrialOver(const DurableFolder &root) const;
    void setAsideUnneeded() const;
    [[nodiscard]] QStringList presentVersions() const;
    [[nodiscard]] QString formerVersion(const QStringList &versions) const;
    [[nodiscard]] bool isNeeded(const QString &version) const;

    InstalledVersions m_installed;
    std::shared_ptr<UpdatesFolder> m_folder;
};

} // namespace quorvane
