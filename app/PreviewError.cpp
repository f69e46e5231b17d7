// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "app/PreviewError.h"

namespace quorvane {

std::string errorText(PreviewError error)
{
    switch (error) {
    case PreviewError::folderUnavailable:
        return "the folder cannot be made";
    case PreviewError::viewUnavailable:
        return "a view cannot be loaded";
    case PreviewError::writeFailed:
        return "a picture cannot be written";
    }
    return "unknown";
}

const char *errorDomain(PreviewError)
{
    return "Quorvane.Preview";
}

} // namespace quorvane
