// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "core/ErrorEnum.h"

namespace quorvane {

enum class PreviewError {
    /// The folder cannot be made.
    folderUnavailable = 1,
    /// A view cannot be loaded.
    viewUnavailable,
    /// A picture cannot be written.
    writeFailed,
};

[[nodiscard]] std::string errorText(PreviewError error);
[[nodiscard]] const char *errorDomain(PreviewError error);

} // namespace quorvane

QUORVANE_ERROR_ENUM(PreviewError)
