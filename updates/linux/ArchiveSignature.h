// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "core/Result.h"

#include <QByteArray>
#include <QString>

#include <optional>

/// Ed25519 signatures (RFC 8032) of archives.
namespace quorvane::ArchiveSignature {

/// A public key's length in bytes.
inline constexpr qsizetype keySize = 32;

/// The 32 bytes of a public key, from base64 (RFC 4648) with its padding and nothing around it; absent when
/// it is anything else.
[[nodiscard]] std::optional<QByteArray> parseKey(const QString &base64);

/// Whether the file at `path` has `length` bytes and `signature` (64 bytes) is that of `key` (32 bytes) over
/// all of them. Fails with `UpdateError::wrongLength`, `signatureInvalid`, or `installationFailed` when the
/// file cannot be read or is larger than `UpdateItem::longestArchive`. Holds the whole file in memory: a
/// mapped one that shrinks meanwhile would end the program. Takes long, so not on the main thread.
[[nodiscard]] Result<void> verify(const QString &path, qint64 length, const QByteArray &signature,
                                  const QByteArray &key);

} // namespace quorvane::ArchiveSignature
