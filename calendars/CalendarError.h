// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "core/ErrorEnum.h"

namespace quorvane {

enum class CalendarError {
    /// The store's service is not installed or not running and cannot be started.
    unavailable = 1,
    /// The store did not answer in time.
    timedOut,
    /// The store answered with something that cannot be used.
    unreadable,
};

[[nodiscard]] std::string errorText(CalendarError error);
[[nodiscard]] const char *errorDomain(CalendarError error);

} // namespace quorvane

QUORVANE_ERROR_ENUM(CalendarError)
