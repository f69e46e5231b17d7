// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "core/AlertPolicy.h"
#include "core/MeetingSelection.h"

#include <benchmark/benchmark.h>

#include <algorithm>

using namespace Qt::StringLiterals;
using namespace quorvane;

namespace {

constexpr double now = 1'800'000'000;

// Notes as mail programs write them: paragraphs, links to elsewhere, the meeting's link at the end.
QString notes(qsizetype characters)
{
    const QString paragraph = u"Agenda: see https://example.org/docs/a?b=c (draft), and bring figures; "
                              "questions to ada@example.org. Minutes: http://wiki.example.org/x.\n"_s;
    return paragraph.repeated(characters / paragraph.size() + 1) +
           u"Join: https://us02web.zoom.us/j/123?pwd=x"_s;
}

std::vector<Meeting> meetings(int count, const QString &source)
{
    std::vector<Meeting> all;
    for (int i = 0; i < count; ++i) {
        const double start = now + 60.0 * ((i * 7919) % count);
        all.push_back({.id = Meeting::identity(source + QString::number(i), start),
                       .title = u"Meeting %1"_s.arg(i),
                       .start = start,
                       .end = start + 1800,
                       .calendar = u"Work"_s,
                       .joinURL = i % 2 == 0 ? std::optional(u"https://zoom.us/j/%1"_s.arg(i)) : std::nullopt,
                       .source = source});
    }
    return all;
}

void linkSearch(benchmark::State &state)
{
    const QString text = notes(state.range(0));
    for (auto _ : state)
        benchmark::DoNotOptimize(Meeting::findJoinURL(text));
    state.SetBytesProcessed(state.iterations() * text.size());
}

void selectionOf10000(benchmark::State &state)
{
    const auto local = meetings(8'000, Meeting::systemSource);
    const auto saved = meetings(9'500, Meeting::systemSource);
    const auto manual = meetings(500, Meeting::manualSource);
    for (auto _ : state) {
        const auto merged = MeetingSelection::candidates(local, saved, manual, Freshness::stale, now);
        const auto chosen = std::ranges::count_if(
            merged, [](const Meeting &meeting) { return MeetingSelection::includes(meeting, {}); });
        benchmark::DoNotOptimize(chosen);
    }
}

// What the tick does each second.
void dueAmong10000(benchmark::State &state)
{
    const auto scheduled = meetings(10'000, Meeting::systemSource);
    const AlertRecord acknowledged{.acknowledged = true};
    for (auto _ : state) {
        const auto due = std::ranges::count_if(scheduled, [&](const Meeting &meeting) {
            return AlertPolicy::shouldShow(meeting, now, 60, acknowledged);
        });
        benchmark::DoNotOptimize(due);
    }
}

} // namespace

BENCHMARK(linkSearch)->Arg(200)->Arg(20'000)->Arg(1'000'000);
BENCHMARK(selectionOf10000)->Unit(benchmark::kMillisecond);
BENCHMARK(dueAmong10000)->Unit(benchmark::kMicrosecond);
