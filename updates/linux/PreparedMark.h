// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "core/Result.h"
#include "updates/UpdateItem.h"

/// What lies in the folder of a version that this program has made ready, and says of which archive.
namespace quorvane::PreparedMark {

/// `folder` is that of the version, as below.
[[nodiscard]] bool isOf(const QString &folder, const UpdateItem &item);
/// Whether it is of any archive.
[[nodiscard]] bool isIn(const QString &folder);
/// Fails with the system's error.
[[nodiscard]] Result<void> write(const QString &folder, const UpdateItem &item);

} // namespace quorvane::PreparedMark
