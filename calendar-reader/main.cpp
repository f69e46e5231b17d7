// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "calendar-reader/CacheFile.h"
#include "calendar-reader/CacheReader.h"
#include "calendar-reader/ExcludedCalendars.h"
#include "calendar-reader/ReaderOutcome.h"
#include "calendar-reader/WatchedProcess.h"
#include "calendars/ical/TimeZoneResolver.h"
#include "calendars/records/FantasticalCache.h"
#include "calendars/records/FantasticalSnapshot.h"
#include "confinement/CallConfinement.h"
#include "confinement/FileConfinement.h"
#include "confinement/ResourceLimits.h"

#include <QFile>

#include <fcntl.h>
#include <sqlite3.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <string>

namespace quorvane {
namespace {

using namespace std::chrono_literals;

// The application ends the reader after 15 seconds.
constexpr auto inputLimit = 4s;
constexpr auto readingLimit = 11s; // leaves time to print
constexpr auto wholeLimit = 13s;

constexpr std::int64_t megabyte = 1'000'000;
constexpr std::int64_t databaseMemory = 64 * megabyte;
constexpr ResourceLimits limits{
    .processorTime = 12s,
    .memory = 512 * megabyte,
    // Standard output may be a file.
    .fileSize = 10 * FantasticalSnapshot::largest,
};

constexpr const char *usage =
    "usage: calendar-reader [CACHE] < LIST\n"
    "LIST is a JSON array with the identifiers of the calendars to leave out, e.g. []\n";

double unixTime()
{
    return std::chrono::duration<double>(std::chrono::system_clock::now().time_since_epoch()).count();
}

QByteArray cachePath(int argc, char **argv)
{
    if (argc > 1)
        return argv[1];
    const QByteArray home = qgetenv("HOME");
    if (home.isEmpty())
        return {};
    return QFile::encodeName(FantasticalCache::defaultDirectory(QFile::decodeName(home)) + u'/' +
                             FantasticalCache::fileName);
}

bool write(const QByteArray &bytes)
{
    for (qsizetype written = 0; written < bytes.size();) {
        const ssize_t count = ::write(STDOUT_FILENO, bytes.constData() + written,
                                      static_cast<std::size_t>(bytes.size() - written));
        if (count < 0 && errno != EINTR)
            return false;
        written += std::max<ssize_t>(0, count);
    }
    return true;
}

/// libical comments on broken text on standard error, where only our one word belongs.
void muteLibraries()
{
    const int nowhere = ::open("/dev/null", O_WRONLY | O_CLOEXEC);
    if (nowhere >= 0)
        ::dup2(nowhere, STDERR_FILENO);
}

ReaderOutcome readConfined(CacheRequest request, RowGate &gate)
{
    muteLibraries();
    limitResources(limits);
    sqlite3_hard_heap_limit64(databaseMemory);
    confineToReading({request.path.left(request.path.lastIndexOf('/') + 1), "/usr/share/zoneinfo"});
    denySystemCalls(FileCalls::read);
    request.mayRead = [&gate](std::int64_t row) { return gate.pass(row); };
    request.leaveRows = [&gate] { gate.leave(); };
    const Result<FantasticalSnapshot> snapshot = CacheReader::read(request);
    if (!snapshot)
        return outcomeOf(snapshot.error());
    return write(snapshot->toJson()) ? ReaderOutcome::done : ReaderOutcome::outputFailed;
}

ReaderOutcome run(int argc, char **argv)
{
    const Deadline began = std::chrono::steady_clock::now();
    const Result<QByteArray> input = ExcludedCalendars::read(STDIN_FILENO, began + inputLimit);
    const Result<QStringList> excluded =
        input ? ExcludedCalendars::parse(*input) : Result<QStringList>(Failure(input.error()));
    if (!excluded)
        return ReaderOutcome::invalidInput;
    const QByteArray path = cachePath(argc, argv);
    const Result<QByteArray> resolved = CacheFile::resolve(path);
    if (!resolved)
        return outcomeOf(resolved.error());

    const CacheRequest request{
        .path = *resolved,
        .excluded = *excluded,
        .now = unixTime(),
        .zone = TimeZoneResolver::defaultZoneName(),
        .deadline = began + readingLimit,
    };
    WatchedProcess process(
        [&request](RowGate &gate) { return static_cast<int>(readConfined(request, gate)); });
    const int outcome = process.run(began + wholeLimit);
    const bool isKnown = outcome >= 0 && outcome <= static_cast<int>(ReaderOutcome::readerFailed);
    return isKnown ? static_cast<ReaderOutcome>(outcome) : ReaderOutcome::readerFailed;
}

} // namespace
} // namespace quorvane

int main(int argc, char **argv)
{
    using namespace quorvane;
    if (argc > 2 || ::isatty(STDIN_FILENO) != 0) {
        std::fputs(usage, stderr);
        return statusOf(ReaderOutcome::readerFailed);
    }
    std::signal(SIGPIPE, SIG_IGN);
    std::signal(SIGXFSZ, SIG_IGN);
    const ReaderOutcome outcome = run(argc, argv);
    if (outcome != ReaderOutcome::done)
        std::fprintf(stderr, "%s\n", std::string(wordOf(outcome)).c_str());
    std::fflush(nullptr);
    std::_Exit(statusOf(outcome));
}
