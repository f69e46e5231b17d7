// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QQuickItem>

#include <functional>

namespace quorvane {

using ItemTest = std::function<bool(const QQuickItem &)>;

/// The first item at or below `root` that passes, rows of views among them; null if there is none.
inline QQuickItem *findItem(QQuickItem *root, const ItemTest &passes)
{
    if (!root || passes(*root))
        return root;
    for (QQuickItem *child : root->childItems()) {
        if (QQuickItem *found = findItem(child, passes))
            return found;
    }
    return nullptr;
}

} // namespace quorvane
