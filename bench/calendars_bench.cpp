// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "calendars/linux/EvolutionStore.h"
#include "calendars/linux/FolderStore.h"
#include "calendars/records/EventMeetings.h"

#include <QCoreApplication>
#include <QCoroTask>
#include <QDateTime>
#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <benchmark/benchmark.h>

using namespace Qt::StringLiterals;
using namespace quorvane;

namespace {

constexpr int eventCount = 10'000;
constexpr double day = 86'400;

// As Google and Outlook write them; the same in each file.
const QByteArray zone =
    "BEGIN:VTIMEZONE\r\nTZID:Europe/Berlin\r\nBEGIN:DAYLIGHT\r\nDTSTART:19810329T020000\r\n"
    "TZOFFSETFROM:+0100\r\nTZOFFSETTO:+0200\r\nRRULE:FREQ=YEARLY;BYMONTH=3;BYDAY=-1SU\r\n"
    "END:DAYLIGHT\r\nBEGIN:STANDARD\r\nDTSTART:19961027T030000\r\nTZOFFSETFROM:+0200\r\n"
    "TZOFFSETTO:+0100\r\nRRULE:FREQ=YEARLY;BYMONTH=10;BYDAY=-1SU\r\nEND:STANDARD\r\n"
    "END:VTIMEZONE\r\n";

double now()
{
    static const double start = static_cast<double>(QDateTime::currentSecsSinceEpoch());
    return start;
}

/// One in twenty repeats weekly. `days`: over how many days, half of them past, the events are spread.
QByteArray event(int number, int days)
{
    const double offset = (number % days - days / 2) * day + number % 24 * 3600;
    const auto start = QDateTime::fromSecsSinceEpoch(qRound64(now() + offset), Qt::UTC);
    const QByteArray time = start.toString(u"yyyyMMdd'T'hh0000").toLatin1();
    return "BEGIN:VEVENT\r\nUID:" + QByteArray::number(number) +
           "@bench.example\r\nDTSTAMP:20261101T000000Z\r\n" + "DTSTART;TZID=Europe/Berlin:" + time +
           "\r\nDURATION:PT30M\r\nSUMMARY:Meeting " + QByteArray::number(number) +
           (number % 20 == 0 ? "\r\nRRULE:FREQ=WEEKLY" : "") + "\r\nLOCATION:Room 1\r\n" +
           "ORGANIZER:mailto:boss@example.com\r\nATTENDEE;PARTSTAT=ACCEPTED:mailto:me@example.com\r\n" +
           "ATTENDEE;PARTSTAT=ACCEPTED:mailto:boss@example.com\r\nDESCRIPTION:Agenda\\n\\nJoin "
           "https://zoom.us/j/" +
           QByteArray::number(number) + "\\n\r\nBEGIN:VALARM\r\nACTION:DISPLAY\r\nTRIGGER:-PT10M\r\n" +
           "DESCRIPTION:x\r\nEND:VALARM\r\nEND:VEVENT\r\n";
}

QByteArray calendar(const QByteArray &events)
{
    return "BEGIN:VCALENDAR\r\nVERSION:2.0\r\nPRODID:-//bench//EN\r\n" + zone + events + "END:VCALENDAR\r\n";
}

void write(const QString &path, const QByteArray &content)
{
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly) || file.write(content) != content.size())
        qFatal("Cannot write %s.", qPrintable(path));
}

QString folderOf(int days)
{
    static QTemporaryDir root;
    const QString folder = root.filePath(QString::number(days) + u"/work"_s);
    if (!QDir().exists(folder)) {
        QDir().mkpath(folder);
        for (int i = 0; i < eventCount; ++i)
            write(folder + u'/' + QString::number(i) + u".ics"_s, calendar(event(i, days)));
    }
    return root.filePath(QString::number(days));
}

EventReading readOnce(CalendarStore &store, benchmark::State &state)
{
    QStringList ids;
    const auto calendars = QCoro::waitFor(store.calendars());
    if (!calendars) {
        state.SkipWithError(calendars.error().message().c_str());
        return {};
    }
    for (const CalendarOption &option : *calendars)
        ids.append(option.id);
    auto reading = QCoro::waitFor(store.events(now() - 120, now() + 14 * day, ids));
    if (!reading) {
        state.SkipWithError(reading.error().message().c_str());
        return {};
    }
    state.counters["occurrences"] = static_cast<double>(reading->events.size());
    return *std::move(reading);
}

/// A program's first reading of a folder with a file per event.
void readingTenThousandFromFolderCold(benchmark::State &state)
{
    const QString folder = folderOf(static_cast<int>(state.range(0)));
    for (auto step : state) {
        FolderStore store({folder}, {u"me@example.com"_s});
        readOnce(store, state);
    }
}

void readingTenThousandFromFolderUnchanged(benchmark::State &state)
{
    FolderStore store({folderOf(static_cast<int>(state.range(0)))}, {u"me@example.com"_s});
    readOnce(store, state);
    for (auto step : state)
        readOnce(store, state);
}

/// The same events in a single file.
void readingTenThousandFromOneFile(benchmark::State &state)
{
    QTemporaryDir folder;
    QByteArray events;
    for (int i = 0; i < eventCount; ++i)
        events += event(i, static_cast<int>(state.range(0)));
    write(folder.filePath(u"work.ics"_s), calendar(events));
    for (auto step : state) {
        FolderStore store({folder.path()}, {u"me@example.com"_s});
        readOnce(store, state);
    }
}

/// Every reading asks the service anew. Needs a session without calendars of its own (tests/support/session).
void readingTenThousandFromEvolution(benchmark::State &state)
{
    EvolutionStore store;
    readOnce(store, state);
    for (auto step : state)
        readOnce(store, state);
}

void seedEvolution()
{
    const QString sources = qEnvironmentVariable("XDG_CONFIG_HOME") + u"/evolution/sources"_s;
    const QString data = qEnvironmentVariable("XDG_DATA_HOME") + u"/evolution/calendar/bench"_s;
    QDir().mkpath(sources);
    QDir().mkpath(data);
    write(sources + u"/bench.source"_s,
          "[Data Source]\nDisplayName=Bench\nEnabled=true\nParent=local-stub\n\n"
          "[Calendar]\nBackendName=local\nSelected=true\n");
    QByteArray events;
    for (int i = 0; i < eventCount; ++i)
        events += event(i, 730);
    write(data + u"/calendar.ics"_s, calendar(events));
}

/// What a refresh does on the main thread each time that a store has answered.
void makingMeetingsOfTenThousandEvents(benchmark::State &state)
{
    QTemporaryDir folder;
    const QByteArray invitation =
        QByteArray("Agenda (https://wiki.example/page?x=1) and words for us. ").repeated(70);
    QByteArray events;
    for (int i = 0; i < eventCount; ++i)
        events += event(i, 14).replace("DESCRIPTION:Agenda", "DESCRIPTION:" + invitation);
    write(folder.filePath(u"work.ics"_s), calendar(events));
    FolderStore store({folder.path()}, {u"me@example.com"_s});
    const auto reading = readOnce(store, state);
    for (auto step : state) {
        const auto meetings = EventMeetings::meetings(reading.events, now());
        benchmark::DoNotOptimize(meetings.data());
    }
}

BENCHMARK(makingMeetingsOfTenThousandEvents)->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK(readingTenThousandFromFolderCold)->Arg(730)->Arg(14)->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK(readingTenThousandFromFolderUnchanged)
    ->Arg(730)
    ->Arg(14)
    ->Unit(benchmark::kMillisecond)
    ->UseRealTime();
BENCHMARK(readingTenThousandFromOneFile)->Arg(730)->Unit(benchmark::kMillisecond)->UseRealTime();

} // namespace

int main(int count, char **arguments)
{
    QCoreApplication application(count, arguments);
    // Only in a throw-away home, which `session` marks by this variable: never write into a user's own
    // calendars.
    if (qEnvironmentVariable("XDG_DATA_HOME").startsWith(QDir::tempPath() + u"/quorvane-"_s)) {
        seedEvolution();
        BENCHMARK(readingTenThousandFromEvolution)->Unit(benchmark::kMillisecond)->UseRealTime();
    }
    benchmark::Initialize(&count, arguments);
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
