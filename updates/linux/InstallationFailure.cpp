// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "updates/linux/InstallationFailure.h"

#include <cerrno>

namespace quorvane {

Failure installationFailure(int systemsError)
{
    switch (systemsError) {
    case ENOSPC:
    case EDQUOT:
    case EFBIG:
        return Failure(UpdateError::diskFull);
    case EROFS:
    case EACCES:
    case EPERM:
        return Failure(UpdateError::folderReadOnly);
    default:
        return Failure(UpdateError::installationFailed);
    }
}

Failure installationFailure(std::error_code systemsError)
{
    return installationFailure(systemsError.category() == std::generic_category() ? systemsError.value() : 0);
}

} // namespace quorvane
