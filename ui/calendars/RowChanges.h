// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <algorithm>
#include <iterator>
#include <vector>

namespace quorvane {

/// Turns the rows of a list into the ones that are wanted by taking out, inserting, moving and replacing
/// single rows, so that what looks at the list keeps its place. Rows are told apart by `key()`. The list is
/// told of each step: `takeOut(place)`, `insert(place, row)`, `bringForward(from, to)`, `replace(place, row)`
/// (also with an equal row), and asked for `rows()`.
template<typename List, typename Row>
void changeRows(List &list, const std::vector<Row> &wanted)
{
    const auto count = [&list] { return static_cast<int>(std::ssize(list.rows())); };
    for (int place = count() - 1; place >= 0; --place) {
        const auto key = list.rows()[static_cast<std::size_t>(place)].key();
        if (std::ranges::none_of(wanted, [&](const Row &row) { return row.key() == key; }))
            list.takeOut(place);
    }
    int place = 0;
    for (const Row &row : wanted) {
        const auto &rows = list.rows();
        const auto found = std::find_if(rows.begin() + place, rows.end(),
                                        [&](const auto &present) { return present.key() == row.key(); });
        const auto from = static_cast<int>(found - rows.begin());
        if (from == count()) {
            list.insert(place, row);
        } else {
            if (from != place)
                list.bringForward(from, place);
            list.replace(place, row);
        }
        ++place;
    }
    // Of two rows with one key, one may be too many.
    while (count() > place)
        list.takeOut(count() - 1);
}

} // namespace quorvane
