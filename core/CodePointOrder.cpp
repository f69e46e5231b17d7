// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "core/CodePointOrder.h"

#include <algorithm>

namespace quorvane {

bool codePointLess(const QString &a, const QString &b)
{
    const auto [left, right] = std::ranges::mismatch(a, b);
    if (left == a.end() || right == b.end())
        return left == a.end() && right != b.end();
    // Where the first difference involves a surrogate, that side's code point lies above every other one.
    if (left->isSurrogate() != right->isSurrogate())
        return right->isSurrogate();
    return *left < *right;
}

} // namespace quorvane
