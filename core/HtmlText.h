// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QString>

namespace quorvane::HtmlText {

/// Whether `text`, which calls itself plain, was written as HTML: it holds a tag that HTML knows, or an
/// entity such as "&amp;". A link in angle brackets, as mail programs write them, is no tag.
[[nodiscard]] bool isHtml(const QString &text);

/// What a text is wanted for.
enum class Purpose {
    /// To find links in it: their targets are written out behind the links' texts where these do not show
    /// them.
    /// Line breaks of the source stay.
    links,
    /// To be read: each item of a list begins with "• ", and links are their texts only.
    reading,
};

/// The text that a reader of `html` sees, one line per block. Scripts, styles and comments are left out; what
/// only looks like a tag stays. Takes time in proportion to the length of the text, whatever it holds.
[[nodiscard]] QString plainText(const QString &html, Purpose purpose);

} // namespace quorvane::HtmlText
