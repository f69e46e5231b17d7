// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QString>
#include <QStringView>

#include <optional>

namespace quorvane {

/// Walks over the absolute links (scheme "://" rest) in free text, in the order in which they occur.
/// Punctuation that belongs to the sentence around a link is left out of it. Linear in the length of the
/// text, which must outlive it.
class LinkDetector
{
public:
    explicit LinkDetector(QStringView text);

    /// The next link as it stands in the text, or absent when there is none left.
    [[nodiscard]] std::optional<QStringView> next();

private:
    QStringView m_text;
    qsizetype m_position = 0;
};

} // namespace quorvane
