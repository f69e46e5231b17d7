// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "updates/UpdateError.h"

namespace quorvane {

std::string errorText(UpdateError error)
{
    switch (error) {
    case UpdateError::feedUnreachable:
        return "Quorvane could not find out whether there is a newer version.";
    case UpdateError::feedInvalid:
        return "The list of newer versions could not be understood.";
    case UpdateError::downloadFailed:
        return "The update could not be downloaded.";
    case UpdateError::downloadCancelled:
        return "The download was stopped.";
    case UpdateError::diskFull:
        return "There is not enough room on the disk for the update.";
    case UpdateError::wrongLength:
        return "The update was refused: it does not have the size that was announced.";
    case UpdateError::signatureInvalid:
        return "The update was refused: its signature is not valid.";
    case UpdateError::archiveInvalid:
        return "The update was refused: its archive is damaged or unsafe.";
    case UpdateError::wrongVersion:
        return "The update was refused: it is not the version that was announced.";
    case UpdateError::selfTestFailed:
        return "The update was refused: it does not work on this machine.";
    case UpdateError::installationFailed:
        return "The update could not be installed.";
    case UpdateError::rolledBack:
        return "The new version did not start, so Quorvane went back to the one before.";
    case UpdateError::folderReadOnly:
        return "Quorvane cannot change the folder that it is installed in.";
    case UpdateError::setupInvalid:
        return "This build’s update address or key cannot be used.";
    case UpdateError::busy:
        return "Another copy of Quorvane is updating.";
    }
    return {};
}

const char *errorDomain(UpdateError)
{
    return "Update";
}

} // namespace quorvane
