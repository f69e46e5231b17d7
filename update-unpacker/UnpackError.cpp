// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "update-unpacker/UnpackError.h"

#include <cerrno>

namespace quorvane {

UnpackError unpackErrorOf(const std::error_code &error)
{
    if (error.category() == make_error_code(UnpackError{}).category())
        return static_cast<UnpackError>(error.value());
    const bool isFull = error == std::errc::no_space_on_device || error.value() == EDQUOT ||
                        // No file is larger than the rule allows; the user's own bound is.
                        error == std::errc::file_too_large;
    return isFull ? UnpackError::diskFull : UnpackError::writeFailed;
}

std::string errorText(UnpackError error)
{
    switch (error) {
    case UnpackError::archiveInvalid:
        return "archive_invalid";
    case UnpackError::diskFull:
        return "disk_full";
    case UnpackError::writeFailed:
        return "write_failed";
    case UnpackError::unpackerFailed:
        break;
    }
    return "unpacker_failed";
}

const char *errorDomain(UnpackError)
{
    return "Quorvane.UpdateUnpacker";
}

int statusOf(UnpackError error)
{
    return error == UnpackError::archiveInvalid ? 1 : 2;
}

} // namespace quorvane
