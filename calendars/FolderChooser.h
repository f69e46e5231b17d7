// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "core/Result.h"

#include <QCoroTask>
#include <QString>

#include <optional>

namespace quorvane {

/// What a person is asked when a folder is to be chosen.
struct FolderRequest
{
    QString title;
    /// Why the folder is wanted. A desktop's own dialog has no place for it, so whoever offers the way to the
    /// dialog shows it there as well.
    QString message;
    /// Text of the button that takes the folder.
    QString confirmText;
    /// Where the dialog starts; if there is no such folder, in the nearest one above it or where it likes.
    QString startFolder;
};

/// Lets a person choose one existing folder. Owned by whoever composes the program, called on the main thread
/// only, and outlives its calls.
class FolderChooser
{
public:
    FolderChooser() = default;
    virtual ~FolderChooser() = default;
    Q_DISABLE_COPY_MOVE(FolderChooser)

    /// The folder's path, absent when the person chose none. Waits for the person, so without a time bound,
    /// but ends without a folder when what shows the dialog goes away. Fails with
    /// `std::errc::not_supported` when there was no dialog for the person to answer: another chooser may be
    /// asked then.
    [[nodiscard]] virtual QCoro::Task<Result<std::optional<QString>>> choose(FolderRequest request) = 0;

    /// What `choose` fails with.
    [[nodiscard]] static Failure notSupported()
    {
        return Failure(std::make_error_code(std::errc::not_supported));
    }
};

} // namespace quorvane
