// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "calendars/records/FantasticalReadError.h"

#include <array>

namespace quorvane {

std::string errorText(FantasticalReadError error)
{
    switch (error) {
    case FantasticalReadError::helperMissing:
        return "the calendar reader is missing";
    case FantasticalReadError::accessDenied:
        return "the calendar cache may not be opened";
    case FantasticalReadError::databaseUnavailable:
        return "the calendar cache cannot be read";
    case FantasticalReadError::unsupportedFormat:
        return "the calendar cache has an unknown layout";
    case FantasticalReadError::helperFailed:
        return "the calendar reader failed";
    case FantasticalReadError::invalidData:
        return "the calendar reader's answer is not valid";
    }
    return "unknown";
}

const char *errorDomain(FantasticalReadError)
{
    return "Quorvane.Fantastical";
}

std::string_view readerToken(FantasticalReadError error)
{
    switch (error) {
    case FantasticalReadError::accessDenied:
        return "access_denied";
    case FantasticalReadError::databaseUnavailable:
        return "database_unavailable";
    case FantasticalReadError::unsupportedFormat:
        return "unsupported_format";
    case FantasticalReadError::helperMissing:
    case FantasticalReadError::helperFailed:
    case FantasticalReadError::invalidData:
        break;
    }
    return {};
}

std::optional<FantasticalReadError> errorOfToken(std::string_view token)
{
    constexpr std::array known{FantasticalReadError::accessDenied, FantasticalReadError::databaseUnavailable,
                               FantasticalReadError::unsupportedFormat};
    for (const FantasticalReadError error : known) {
        if (token == readerToken(error))
            return error;
    }
    return std::nullopt;
}

} // namespace quorvane
