// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <cerrno>
#include <system_error>

namespace quorvane {

/// Why the last call into the system failed.
[[nodiscard]] inline std::error_code systemError()
{
    return {errno, std::generic_category()};
}

} // namespace quorvane
