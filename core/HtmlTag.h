// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QString>
#include <QStringView>

#include <optional>

namespace quorvane {

/// One tag of an HTML text.
struct HtmlTag
{
    /// In lower case.
    QString name;
    bool closing = false;
    /// The value of "href" as it is written, entities and all; null when there is none.
    QStringView href;
    /// The position behind the tag.
    qsizetype end = 0;
};

/// Finds the tags of one text. Remembers what it searched in vain, so that going through a text takes time in
/// proportion to its length. The text must outlive it.
class HtmlTagReader final
{
public:
    explicit HtmlTagReader(QStringView text)
        : m_text(text)
    {
    }

    /// The tag that begins at the "<" at `position`, if it has a name that HTML knows and is closed.
    [[nodiscard]] std::optional<HtmlTag> tagAt(qsizetype position);

private:
    bool readAttributes(qsizetype &position, HtmlTag &tag);
    std::optional<QStringView> readValue(qsizetype &position);

    QStringView m_text;
    bool m_noDoubleQuote = false;
    bool m_noSingleQuote = false;
};

} // namespace quorvane
