// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "core/Result.h"
#include "updates/UpdateItem.h"

#include <QByteArray>

#include <optional>
#include <vector>

/// What a feed announces. It is RSS 2.0 with elements and attributes, here written with the prefix "sparkle",
/// of the namespace http://www.andymatuschak.org/xml-namespaces/sparkle.
namespace quorvane::Appcast {

/// A feed is at most this many bytes of UTF-8.
inline constexpr qsizetype largest = 4'000'000;
/// And at most this many items.
inline constexpr int mostItems = 1'000;

/// The items that this system could install, in the feed's order. Fails with `UpdateError::feedInvalid` when
/// the bytes are no such feed, have a document type declaration (so nothing is ever expanded), or go beyond a
/// bound (see also FeedMarkup.h).
///
/// `sparkle:version` and `sparkle:shortVersionString` are elements of the item or, if these are missing,
/// attributes of its enclosure; `enclosure` or `sparkle:enclosure` has `url`, `length`, `sparkle:edSignature`
/// and maybe `sparkle:os`, where "linux" and "linux-CPU" (CPU as Qt names the one that this program was built
/// for) are ours, and an enclosure that names none is when no other of its item names Linux. Left out are
/// items of a `sparkle:channel`, those that only inform, and those without a version or an enclosure as
/// `UpdateItem` wants it: over HTTPS, of at most `longestArchive` bytes, signed. An item that is left out
/// costs no other one.
[[nodiscard]] Result<std::vector<UpdateItem>> read(const QByteArray &feed);

/// The highest of the versions above the installed one, if there is any; the first of those that are equal.
[[nodiscard]] std::optional<UpdateItem> newest(const std::vector<UpdateItem> &items,
                                               const QString &installedVersion);

} // namespace quorvane::Appcast
