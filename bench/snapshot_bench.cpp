// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "calendars/records/FantasticalSnapshot.h"

#include <benchmark/benchmark.h>
#include <nlohmann/json.hpp>

using namespace Qt::StringLiterals;
using namespace quorvane;

namespace {

/// As many meetings as the longest snapshot holds.
QByteArray longSnapshot()
{
    FantasticalSnapshot snapshot{
        .skipped = 3, .checkedAt = 1'800'000'000.25, .cacheModifiedAt = 1'799'999'000.5};
    for (int i = 0; i < 40; ++i)
        snapshot.calendars.push_back(
            {u"calendar-%1"_s.arg(i), u"Kalender Nr. %1"_s.arg(i), u"me@example.com"_s});
    for (int i = 0; i < 26'000; ++i) {
        const double start = 1'800'000'000 + 900.0 * i;
        const QString uid = u"%1@bench.example"_s.arg(i);
        snapshot.events.push_back({.id = Meeting::identity(uid, start),
                                   .title = u"Wöchentliche Abstimmung – Team %1 “Plan”"_s.arg(i),
                                   .start = start,
                                   .end = start + 1800,
                                   .calendar = snapshot.calendars[static_cast<std::size_t>(i % 40)].name,
                                   .source = Meeting::systemSource,
                                   .cancelled = i % 50 == 0});
        if (i % 4 != 0)
            snapshot.events.back().joinURL =
                u"https://zoom.us/j/%1?pwd=Zm9vYmFyYmF6cXV4Zm9vYmFyYmF6.1"_s.arg(i);
    }
    return snapshot.toJson();
}

const QByteArray &bytes()
{
    static const QByteArray text = longSnapshot();
    return text;
}

QString text(const nlohmann::json &value)
{
    return QString::fromStdString(value.get_ref<const std::string &>());
}

Meeting meeting(const nlohmann::json &json)
{
    Meeting result{.id = text(json.at("id")),
                   .title = text(json.at("title")),
                   .start = json.at("start").get<double>(),
                   .end = json.at("end").get<double>(),
                   .calendar = text(json.at("calendar")),
                   .source = text(json.at("source")),
                   .cancelled = json.at("cancelled").get<bool>(),
                   .allDay = json.at("allDay").get<bool>()};
    if (const auto link = json.find("joinURL"); link != json.end())
        result.joinURL = text(*link);
    return result;
}

void count(benchmark::State &state)
{
    state.SetBytesProcessed(static_cast<std::int64_t>(state.iterations()) * bytes().size());
}

void snapshotDecoding(benchmark::State &state)
{
    for (auto step : state) {
        const auto snapshot = FantasticalSnapshot::fromJson(bytes());
        if (!snapshot)
            return state.SkipWithError("the snapshot is not valid");
        benchmark::DoNotOptimize(snapshot->events.data());
    }
    count(state);
}

/// For comparison: the same bytes by a well-known library, as a tree and as the same records.
void snapshotParsingByNlohmann(benchmark::State &state)
{
    for (auto step : state) {
        const auto tree = nlohmann::json::parse(bytes().begin(), bytes().end());
        benchmark::DoNotOptimize(&tree);
    }
    count(state);
}

void snapshotDecodingByNlohmann(benchmark::State &state)
{
    for (auto step : state) {
        const auto tree = nlohmann::json::parse(bytes().begin(), bytes().end());
        FantasticalSnapshot snapshot{.skipped = tree.at("skipped").get<qint64>(),
                                     .checkedAt = tree.at("checkedAt").get<double>(),
                                     .cacheModifiedAt = tree.at("cacheModifiedAt").get<double>()};
        for (const auto &event : tree.at("events"))
            snapshot.events.push_back(meeting(event));
        for (const auto &option : tree.at("calendars"))
            snapshot.calendars.push_back(
                {text(option.at("id")), text(option.at("name")), text(option.at("account"))});
        benchmark::DoNotOptimize(snapshot.events.data());
    }
    count(state);
}

} // namespace

BENCHMARK(snapshotDecoding)->Unit(benchmark::kMillisecond);
BENCHMARK(snapshotParsingByNlohmann)->Unit(benchmark::kMillisecond);
BENCHMARK(snapshotDecodingByNlohmann)->Unit(benchmark::kMillisecond);
