// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "core/ErrorEnum.h"

namespace quorvane {

/// Why there is no update. Each text is one sentence for the person.
enum class UpdateError {
    /// The feed could not be fetched.
    feedUnreachable = 1,
    /// It is larger than a feed may be, or is no appcast.
    feedInvalid,
    /// The archive could not be fetched, or not to its end.
    downloadFailed,
    /// The person stopped the download.
    downloadCancelled,
    /// The disk has not enough room.
    diskFull,
    /// The archive has another length than announced.
    wrongLength,
    /// The archive is not signed by who makes this program.
    signatureInvalid,
    /// The archive is none, or holds what an update must not hold.
    archiveInvalid,
    /// The archive holds another version than announced, or an older one.
    wrongVersion,
    /// The new version found that it cannot work on this machine.
    selfTestFailed,
    /// The new version could not be put in place.
    installationFailed,
    /// The new version did not come up, and the one before was put back.
    rolledBack,
    /// The folder that the program is installed in cannot be written.
    folderReadOnly,
    /// The build has a feed, but its address or its key cannot be used.
    setupInvalid,
    /// Another copy of the program is updating.
    busy,
};

[[nodiscard]] std::string errorText(UpdateError error);
[[nodiscard]] const char *errorDomain(UpdateError error);

} // namespace quorvane

QUORVANE_ERROR_ENUM(UpdateError)
