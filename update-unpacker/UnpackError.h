// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "core/ErrorEnum.h"

namespace quorvane {

/// Why an archive was not unpacked.
enum class UnpackError {
    /// It is no archive of the kind that updates come in, is damaged, or holds what an update must not hold.
    archiveInvalid = 1,
    diskFull,
    /// The folder does not take what was unpacked, or is none that is empty.
    writeFailed,
    /// Anything else, such as too little memory or time.
    unpackerFailed,
};

/// What a failure of any part means: those of the system are about writing.
[[nodiscard]] UnpackError unpackErrorOf(const std::error_code &error);

/// The word that the unpacker prints on standard error.
[[nodiscard]] std::string errorText(UnpackError error);
[[nodiscard]] const char *errorDomain(UnpackError error);

/// The unpacker's exit status, which is 0 when all is done: 1 when the archive is at fault, else 2.
[[nodiscard]] int statusOf(UnpackError error);

} // namespace quorvane

QUORVANE_ERROR_ENUM(UnpackError)
