// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "core/ErrorEnum.h"

#include <optional>
#include <string_view>

namespace quorvane {

/// Why the calendar cache beside the system's store could not be read.
enum class FantasticalReadError {
    /// The reader executable is not there or not executable.
    helperMissing = 1,
    /// The cache may not be opened.
    accessDenied,
    /// The cache is missing, locked or damaged.
    databaseUnavailable,
    /// The cache's layout is not understood.
    unsupportedFormat,
    /// The reader failed in another way or did not end in time.
    helperFailed,
    /// The reader's answer is too long or no valid snapshot.
    invalidData,
};

[[nodiscard]] std::string errorText(FantasticalReadError error);
[[nodiscard]] const char *errorDomain(FantasticalReadError error);

/// The word by which the reader executable tells the application of an error that both know; empty for the
/// others.
[[nodiscard]] std::string_view readerToken(FantasticalReadError error);

/// The error that such a word stands for; absent for any other text.
[[nodiscard]] std::optional<FantasticalReadError> errorOfToken(std::string_view token);

} // namespace quorvane

QUORVANE_ERROR_ENUM(FantasticalReadError)
