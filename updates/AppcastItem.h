// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "updates/UpdateItem.h"

#include <optional>

class QXmlStreamReader;

/// One item of a feed (see Appcast.h).
namespace quorvane::AppcastItem {

/// Reads the element that `xml` has just come to, to its end. Nothing when this system cannot install the
/// item.
[[nodiscard]] std::optional<UpdateItem> read(QXmlStreamReader &xml);

} // namespace quorvane::AppcastItem
