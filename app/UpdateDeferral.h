// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "core/ErrorEnum.h"

namespace quorvane {

/// Why the program does not update now.
enum class UpdateDeferral {
    meetingNeedsAttention = 1,
};

[[nodiscard]] std::string errorText(UpdateDeferral deferral);
[[nodiscard]] const char *errorDomain(UpdateDeferral deferral);

} // namespace quorvane

QUORVANE_ERROR_ENUM(UpdateDeferral)
