// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "core/ErrorEnum.h"

namespace quorvane {

enum class NetworkError {
    /// The request cannot be built from the settings: no usable server address, credentials missing or
    /// malformed.
    configuration = 1,
    /// The answer's status is outside 200 to 299, or its body is longer than `HttpsClient::longestBody`.
    rejected,
    /// The answer decoded but says failure, or an identifier to be sent has the wrong form.
    invalidResponse,
    /// A download has more bytes than it may have.
    tooLong,
};

[[nodiscard]] std::string errorText(NetworkError error);
[[nodiscard]] const char *errorDomain(NetworkError error);

} // namespace quorvane

QUORVANE_ERROR_ENUM(NetworkError)
