// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "updates/VersionOrder.h"

#include <algorithm>

namespace quorvane::VersionOrder {
namespace {

bool isDigit(QChar c)
{
    return c >= u'0' && c <= u'9';
}

bool isWordLetter(QChar c)
{
    return (c >= u'a' && c <= u'z') || (c >= u'A' && c <= u'Z');
}

/// A run of digits without leading zeros, or a run of letters; 0 is empty.
struct Component
{
    QStringView text;
    bool isNumber = true;
};

/// Takes the first component off `rest`; 0 when there is none.
Component takeComponent(QStringView &rest)
{
    const auto isPart = [](QChar c) { return isDigit(c) || isWordLetter(c); };
    const auto *const begin = std::find_if(rest.begin(), rest.end(), isPart);
    if (begin == rest.end()) {
        rest = {};
        return {};
    }
    const bool isNumber = isDigit(*begin);
    const auto *const end = std::find_if_not(begin, rest.end(), isNumber ? isDigit : isWordLetter);
    QStringView text(begin, end);
    rest = QStringView(end, rest.end());
    while (isNumber && text.startsWith(u'0'))
        text = text.mid(1);
    return {.text = text, .isNumber = isNumber};
}

std::weak_ordering compareComponents(Component left, Component right)
{
    if (left.isNumber != right.isNumber)
        return left.isNumber ? std::weak_ordering::greater : std::weak_ordering::less;
    if (left.isNumber && left.text.size() != right.text.size())
        return left.text.size() <=> right.text.size();
    return left.text.compare(right.text) <=> 0;
}

} // namespace

std::weak_ordering compare(QStringView left, QStringView right)
{
    while (!left.isEmpty() || !right.isEmpty()) {
        const Component leftFirst = takeComponent(left);
        const Component rightFirst = takeComponent(right);
        const std::weak_ordering order = compareComponents(leftFirst, rightFirst);
        if (order != 0)
            return order;
    }
    return std::weak_ordering::equivalent;
}

bool isVersion(QStringView text)
{
    constexpr qsizetype longest = 40;
    return !text.isEmpty() && text.size() <= longest && text.front() != u'.' &&
           std::all_of(text.begin(), text.end(),
                       [](QChar c) { return isDigit(c) || isWordLetter(c) || c == u'.' || c == u'-'; });
}

} // namespace quorvane::VersionOrder
