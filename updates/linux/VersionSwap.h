// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "core/Result.h"
#include "updates/Handover.h"
#include "updates/linux/InstalledVersions.h"

#include <QString>

/// Putting versions in place.
namespace quorvane::VersionSwap {

/// Makes `version` the one that is started from now on, on trial in place of the one that runs. Fails with
/// `UpdateError::installationFailed`, and nothing has changed: also when the version that runs is on trial
/// itself, or is not the current one. Only for who holds the lock of ROOT/.updates.
[[nodiscard]] Result<void> perform(const InstalledVersions &installed, const QString &version,
                                   const Handover &handover);

} // namespace quorvane::VersionSwap
