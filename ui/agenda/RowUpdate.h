// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QStringList>

#include <vector>

namespace quorvane {

/// One step of turning a list into another, in the list as the steps before have left it.
struct RowStep
{
    enum class Kind {
        /// `count` rows from `first` on go.
        remove,
        /// The row `first` comes to stand at `to`.
        move,
        /// `count` rows come in, the first of them at `first`.
        insert,
    };

    Kind kind = Kind::remove;
    int first = 0;
    int count = 1;
    int to = 0;

    bool operator==(const RowStep &) const = default;
};

} // namespace quorvane

/// How a list model follows what it shows without a reset, so that views keep their place and focus.
namespace quorvane::RowUpdate {

/// The steps from the rows with the keys `before` to those with the keys `after`. Rows of both stay, and as
/// few of them as possible move. Keys are unique within each list.
[[nodiscard]] std::vector<RowStep> plan(const QStringList &before, const QStringList &after);

} // namespace quorvane::RowUpdate
