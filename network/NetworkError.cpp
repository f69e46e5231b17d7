// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "network/NetworkError.h"

namespace quorvane {

std::string errorText(NetworkError error)
{
    switch (error) {
    case NetworkError::configuration:
        return "the settings are not complete";
    case NetworkError::rejected:
        return "the request was rejected";
    case NetworkError::invalidResponse:
        return "the answer says failure";
    case NetworkError::tooLong:
        return "the download is too long";
    }
    return "unknown";
}

const char *errorDomain(NetworkError)
{
    return "Quorvane.Network";
}

} // namespace quorvane
