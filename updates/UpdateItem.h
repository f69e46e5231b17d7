// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QByteArray>
#include <QString>
#include <QUrl>

namespace quorvane {

/// A version of this program that the feed announces.
struct UpdateItem
{
    /// The longest archive that is fetched, in bytes.
    static constexpr qint64 longestArchive = 256'000'000;

    /// The build's number, by which versions are compared: 1 to 40 letters, digits, dots and hyphens, and no
    /// dot in front.
    QString version;
    /// The version as people read it; `version` where the feed does not say.
    QString shortVersion;
    /// What is new, as plain text; may be empty.
    QString notes;
    /// Where the archive is, over HTTPS.
    QUrl archive;
    /// The archive's length in bytes.
    qint64 length = 0;
    /// The Ed25519 signature (RFC 8032) of the archive's bytes: 64 bytes.
    QByteArray signature;

    bool operator==(const UpdateItem &) const = default;
};

} // namespace quorvane
