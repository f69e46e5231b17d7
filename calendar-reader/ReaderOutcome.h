// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <string_view>
#include <system_error>

namespace quorvane {

/// How a run of the reader ended.
enum class ReaderOutcome {
    done,
    accessDenied,
    databaseUnavailable,
    unsupportedFormat,
    /// Standard input is no list of calendars.
    invalidInput,
    /// Standard output does not take the snapshot.
    outputFailed,
    /// Anything else, such as too little memory or time.
    readerFailed,
};

/// What a failure of `CacheReader` or `CacheFile` means.
[[nodiscard]] ReaderOutcome outcomeOf(const std::error_code &error);

/// The word that the reader prints on standard error; empty when it is done.
[[nodiscard]] std::string_view wordOf(ReaderOutcome outcome);

/// The reader's exit status: 0 when it is done, 1 when the cache cannot be read, 2 for any other failure.
[[nodiscard]] int statusOf(ReaderOutcome outcome);

} // namespace quorvane
