// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "core/Result.h"
#include "updates/UpdateItem.h"
#include "updates/linux/InstalledVersions.h"

/// ROOT/pending.json: the prepared version that is to be put in place by the next start of the program. Not
/// before, because then nobody would be there to go back, should it not even come to the beginning of its
/// trial.
namespace quorvane::PendingVersion {

/// Fails with the system's error.
[[nodiscard]] Result<void> note(const InstalledVersions &installed, const UpdateItem &item);

/// Puts what was noted in place of the version that runs, on trial. False when nothing is noted, or what does
/// not fit (any more). Forgets it in any case, so that there is one try; but for later while another copy is
/// at work.
[[nodiscard]] bool activate(const InstalledVersions &installed);

} // namespace quorvane::PendingVersion
