// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QStringView>

#include <optional>

namespace quorvane {

/// One character reference of HTML, such as "&amp;" or "&#x2F;".
struct HtmlEntity
{
    /// The character it stands for; U+FFFD for a number that names none.
    char32_t character = 0;
    /// Its length in the text, semicolon included.
    qsizetype length = 0;
};

/// The reference that begins at the ampersand at `position`, if one does: the common names and all numbers,
/// closed by a semicolon.
[[nodiscard]] std::optional<HtmlEntity> htmlEntityAt(QStringView text, qsizetype position);

} // namespace quorvane
