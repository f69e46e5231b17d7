// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "network/SecretError.h"

namespace quorvane {

std::string errorText(SecretError error)
{
    switch (error) {
    case SecretError::writeFailed:
        return "the value could not be stored";
    }
    return "unknown";
}

const char *errorDomain(SecretError)
{
    return "Quorvane.Secrets";
}

} // namespace quorvane
