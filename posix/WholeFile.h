// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "core/Result.h"

#include <QByteArray>
#include <QString>

namespace quorvane {

/// Writes a small file that is there as a whole or not at all; one that stands there already is replaced. The
/// folder must exist. Fails with `std::errc::io_error`, also when the last byte found no place.
[[nodiscard]] Result<void> writeWholeFile(const QString &path, const QByteArray &content);

} // namespace quorvane
