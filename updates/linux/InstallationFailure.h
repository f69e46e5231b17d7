// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "core/Result.h"
#include "updates/UpdateError.h"

namespace quorvane {

/// What a failed call into the system means to who installs: `UpdateError::diskFull`, `folderReadOnly`, or
/// `installationFailed`.
[[nodiscard]] Failure installationFailure(int systemsError);
[[nodiscard]] Failure installationFailure(std::error_code systemsError);

} // namespace quorvane
