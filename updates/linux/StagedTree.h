// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "core/Result.h"

#include <QString>

/// What an archive has to hold.
namespace quorvane::StagedTree {

/// The folder of the version in the unpacked `tree`, which must be Quorvane/versions/`version` and hold an
/// executable and an info.json that says the same version. Fails with `UpdateError::archiveInvalid` when it
/// is no installation, with `wrongVersion` when it is one of another version.
[[nodiscard]] Result<QString> versionIn(const QString &tree, const QString &version);

} // namespace quorvane::StagedTree
