// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "app/InformationDictionary.h"
#include "app/UpdateManager.h"
#include "app/UpdaterPreferences.h"
#include "updates/linux/VersionedInstaller.h"

#include <memory>
#include <optional>

namespace quorvane {

class Clock;

/// What updating is made of in this process.
class UpdateParts final
{
public:
    /// `installed` is the installation that this copy is part of, if it can hold several versions. All that
    /// is referred to outlives this.
    UpdateParts(Preferences &preferences, const Clock &clock,
                const std::optional<InstalledVersions> &installed);

    /// For an update manager, which must not outlive this. `handover` is asked when another version takes
    /// over.
    [[nodiscard]] UpdateManager::Setup setup(const QStringList &arguments,
                                             const std::function<Handover()> &handover);

    /// Removes versions that nobody needs any more, in the background.
    void clean();

private:
    [[nodiscard]] std::unique_ptr<Updater> makeUpdater(UpdaterDelegate &delegate,
                                                       const std::function<Handover()> &handover);

    const Clock &m_clock;
    UpdaterPreferences m_defaults;
    InformationDictionary m_information;
    QString m_keeper;
    std::unique_ptr<VersionedInstaller> m_installer;
};

} // namespace quorvane
