// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QByteArray>
#include <QString>

#include <system_error>

/// Replacing a small private file in one step.
namespace quorvane::AtomicFile {

/// Writes `bytes` to a temporary file beside `path`, readable and writable by its owner only, and renames it
/// over `path`. Until then the old file stands: a kill at any moment leaves the old or the new one. The bytes
/// are pushed to the disk in the background, because a slow disk must not delay the caller; so a power cut
/// may also leave a damaged file where the file system does not order a rename after its data. Gives the
/// system's error, or an empty code.
[[nodiscard]] std::error_code write(const QString &path, const QByteArray &bytes);

} // namespace quorvane::AtomicFile
