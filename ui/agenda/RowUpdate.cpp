// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "ui/agenda/RowUpdate.h"

#include <QHash>

#include <algorithm>
#include <set>

namespace quorvane::RowUpdate {

namespace {

using Places = std::vector<int>;

/// Appends the step, or widens the last one if it is the neighbour of the same kind.
void removeAt(std::vector<RowStep> &steps, int row)
{
    if (!steps.empty() && steps.back().first == row + 1) {
        --steps.back().first;
        ++steps.back().count;
        return;
    }
    steps.push_back({.kind = RowStep::Kind::remove, .first = row});
}

void insertAt(std::vector<RowStep> &steps, int row)
{
    if (!steps.empty() && steps.back().kind == RowStep::Kind::insert &&
        steps.back().first + steps.back().count == row) {
        ++steps.back().count;
        return;
    }
    steps.push_back({.kind = RowStep::Kind::insert, .first = row});
}

/// The places that are in order already: a longest rising subsequence.
std::set<int> unmoved(const Places &places)
{
    Places ends;
    std::vector<std::size_t> lengths;
    for (const int place : places) {
        const auto end = std::ranges::lower_bound(ends, place);
        lengths.push_back(static_cast<std::size_t>(end - ends.begin()) + 1);
        if (end == ends.end())
            ends.push_back(place);
        else
            *end = place;
    }
    std::set<int> result;
    std::size_t wanted = ends.size();
    for (std::size_t index = places.size(); index-- > 0;) {
        if (lengths[index] == wanted && (result.empty() || places[index] < *result.begin())) {
            result.insert(places[index]);
            --wanted;
        }
    }
    return result;
}

/// Each row that is out of order goes behind the nearest smaller one of those in order.
void planMoves(std::vector<RowStep> &steps, Places places)
{
    std::set<int> settled = unmoved(places);
    for (const int place : Places(places)) {
        if (settled.contains(place))
            continue;
        const auto from = std::ranges::find(places, place) - places.begin();
        places.erase(places.begin() + from);
        const auto above = settled.lower_bound(place);
        const auto to =
            above == settled.begin() ? 0 : std::ranges::find(places, *std::prev(above)) - places.begin() + 1;
        places.insert(places.begin() + to, place);
        settled.insert(place);
        if (from != to)
            steps.push_back(
                {.kind = RowStep::Kind::move, .first = static_cast<int>(from), .to = static_cast<int>(to)});
    }
}

} // namespace

std::vector<RowStep> plan(const QStringList &before, const QStringList &after)
{
    if (before == after)
        return {};
    QHash<QString, int> placeOf;
    for (int place = 0; place < after.size(); ++place)
        placeOf.insert(after[place], place);

    std::vector<RowStep> steps;
    Places places;
    for (int row = static_cast<int>(before.size()) - 1; row >= 0; --row) {
        const auto place = placeOf.constFind(before[row]);
        if (place == placeOf.cend())
            removeAt(steps, row);
        else
            places.push_back(*place);
    }
    std::ranges::reverse(places);
    planMoves(steps, places);
    const std::set<int> kept(places.begin(), places.end());
    for (int place = 0; place < after.size(); ++place) {
        if (!kept.contains(place))
            insertAt(steps, place);
    }
    return steps;
}

} // namespace quorvane::RowUpdate
