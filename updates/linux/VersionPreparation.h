// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "core/Result.h"
#include "updates/UpdateItem.h"
#include "updates/linux/VersionedInstaller.h"

#include <memory>

namespace quorvane {

class UpdatesFolder;

/// Makes one version ready, from a downloaded archive to the folder in ROOT/versions. Works away from the
/// main thread and holds all that it needs.
class VersionPreparation final
{
public:
    VersionPreparation(VersionedInstaller::Configuration configuration, std::shared_ptr<UpdatesFolder> folder,
                       UpdateItem item);

    /// See `UpdateInstaller::prepare`. Once only.
    [[nodiscard]] Result<void> perform() const;

private:
    [[nodiscard]] Result<void> prepareIn(const QString &workshop) const;
    [[nodiscard]] Result<void> unpack(const QString &archive, const QString &tree) const;
    [[nodiscard]] Result<void> selfTest(const QString &version, const QString &home) const;
    [[nodiscard]] Result<void> seal(const QString &version) const;
    [[nodiscard]] Result<void> place(const QString &version, const QString &workshop) const;

    VersionedInstaller::Configuration m_configuration;
    std::shared_ptr<UpdatesFolder> m_folder;
    UpdateItem m_item;
};

} // namespace quorvane
