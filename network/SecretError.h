// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "core/ErrorEnum.h"

namespace quorvane {

enum class SecretError {
    /// The value could not be stored; what was stored before may still be there.
    writeFailed = 1,
};

[[nodiscard]] std::string errorText(SecretError error);
[[nodiscard]] const char *errorDomain(SecretError error);

} // namespace quorvane

QUORVANE_ERROR_ENUM(SecretError)
