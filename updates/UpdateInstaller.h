// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "core/Result.h"
#include "updates/Handover.h"
#include "updates/UpdateItem.h"

#include <QCoroTask>

namespace quorvane {

/// How a new version gets beside the present one and into its place. Main thread only; what takes time is
/// done elsewhere. Whenever the process is killed, the old or the new version can be started.
class UpdateInstaller
{
public:
    UpdateInstaller() = default;
    virtual ~UpdateInstaller() = default;
    Q_DISABLE_COPY_MOVE(UpdateInstaller)

    /// Whether anything can be installed here. Fails with `UpdateError::folderReadOnly` or `setupInvalid`.
    [[nodiscard]] virtual Result<void> check() const = 0;

    /// The file that the archive of `item` is to be downloaded to, in a folder that exists by then; what an
    /// earlier download of the same archive left there can be continued. Removes what was downloaded of
    /// others. Fails with `diskFull` when the archive or what is in it will not find room, with
    /// `installationFailed`, or with `busy`.
    [[nodiscard]] virtual Result<QString> archiveFile(const UpdateItem &item) = 0;

    /// Whether `prepare` has gone well for this version, in this run of the program or in an earlier one.
    [[nodiscard]] virtual bool isPrepared(const UpdateItem &item) const = 0;

    /// Checks the archive's length and signature, unpacks it, has the new version test itself, and lays it
    /// beside the present one. The archive is gone afterwards. Fails with `wrongLength`, `signatureInvalid`,
    /// `archiveInvalid`, `wrongVersion`, `selfTestFailed`, `diskFull` or `installationFailed`, and then
    /// nothing is left of it.
    [[nodiscard]] virtual QCoro::Task<Result<void>> prepare(UpdateItem item) = 0;

    /// Makes the prepared version the one that is started from now on, on trial, and keeps the present one.
    /// Takes some milliseconds. Fails with `installationFailed`, and nothing has changed.
    [[nodiscard]] virtual Result<void> activate(const UpdateItem &item, const Handover &handover) = 0;

    /// Has the next start of the program do so, before anything else; the program ends now. Fails with
    /// `installationFailed`, and nothing has changed.
    [[nodiscard]] virtual Result<void> activateAtNextStart(const UpdateItem &item) = 0;

    /// Whether this version was put in place once and did not come up.
    [[nodiscard]] virtual bool hasFailed(const UpdateItem &item) const = 0;
};

} // namespace quorvane
