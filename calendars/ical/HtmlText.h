// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QString>

namespace quorvane::HtmlText {

/// Whether `text`, which calls itself plain, was written as HTML: it holds a tag that HTML knows, or an
/// entity such as "&amp;". A link in angle brackets, as mail programs write them, is no tag.
[[nodiscard]] bool isHtml(const QString &text);

/// The text that a reader of `html` sees, one line per block, with the targets of its links written out
/// behind the links' texts where these do not show them. Scripts, styles and comments are left out; what only
/// looks like a tag stays. Takes time in proportion to the length of the text, whatever it holds.
[[nodiscard]] QString plainText(const QString &html);

} // namespace quorvane::HtmlText
