// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <tl/expected.hpp>

#include <system_error>

namespace quorvane {

/// A value, or the reason why there is none. Reasons are error codes: our own small enumerations
/// (see ErrorEnum.h) compare by name, a platform's error passes through unchanged.
template<class T>
using Result = tl::expected<T, std::error_code>;

using Failure = tl::unexpected<std::error_code>;

} // namespace quorvane
