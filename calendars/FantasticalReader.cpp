// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "calendars/FantasticalReader.h"

#include "async/OffThread.h"
#include "calendars/records/FantasticalCache.h"
#include "calendars/records/FantasticalReadError.h"
#include "posix/ThreadPriority.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QJsonArray>
#include <QJsonDocument>

#include <optional>

using namespace Qt::StringLiterals;

namespace quorvane {

namespace {

using Reading = Result<FantasticalSnapshot>;

/// One reading, with all that it needs away from its caller.
struct Job
{
    QString program;
    QString home;
    QString folder;
    QStringList excluded;
    std::shared_ptr<const ProcessRunner> runner;
    std::chrono::milliseconds timeLimit;
};

QStringList argumentsFor(const QString &folder)
{
    if (!QDir::isAbsolutePath(folder) || !QFileInfo(folder).isDir())
        return {};
    return {QDir(folder).filePath(FantasticalCache::fileName)};
}

ProcessRequest requestFor(const Job &job)
{
    return {
        .program = job.program,
        .arguments = argumentsFor(job.folder),
        // The time zone is part of the contract with the reader, wherever the user is.
        .environment = {{"HOME", QFile::encodeName(job.home)},
                        {"PATH", "/usr/bin:/bin"},
                        {"TZ", "Asia/Jerusalem"}},
        .input = QJsonDocument(QJsonArray::fromStringList(job.excluded)).toJson(QJsonDocument::Compact),
        .timeLimit = job.timeLimit,
        .outputLimit = FantasticalSnapshot::largest,
    };
}

FantasticalReadError errorNamedIn(const QByteArray &said)
{
    // What is no UTF-8 becomes replacement characters, which are in none of the words.
    const QString text = QString::fromUtf8(said).trimmed();
    return errorOfToken(text.toStdString()).value_or(FantasticalReadError::helperFailed);
}

Reading readingFrom(const ProcessOutcome &outcome)
{
    if (outcome.exitStatus != 0)
        return Failure(make_error_code(errorNamedIn(outcome.errorOutput)));
    if (outcome.isOutputCut)
        return Failure(make_error_code(FantasticalReadError::invalidData));
    Reading reading = FantasticalSnapshot::fromJson(outcome.output);
    if (!reading)
        return Failure(make_error_code(FantasticalReadError::invalidData));
    return reading;
}

Reading perform(const Job &job)
{
    // Here, so that the reader inherits it: no reading is worth a late alert.
    lowerThreadPriority();
    const Result<ProcessOutcome> outcome = job.runner->run(requestFor(job));
    if (!outcome)
        return Failure(outcome.error());
    return readingFrom(*outcome);
}

} // namespace

FantasticalReader::FantasticalReader(Configuration configuration)
    : m_configuration(std::move(configuration))
{
}

QCoro::Task<Reading> FantasticalReader::read(QStringList excluded) const
{
    if (*m_overdue > 0)
        co_return Failure(make_error_code(FantasticalReadError::helperFailed));
    Job job{m_configuration.program(), m_configuration.home,   m_configuration.folder(),
            std::move(excluded),       m_configuration.runner, m_configuration.timeLimit};
    const QFileInfo program(job.program);
    if (!program.isFile() || !program.isExecutable())
        co_return Failure(make_error_code(FantasticalReadError::helperMissing));
    const std::chrono::milliseconds bound = 2 * job.timeLimit + m_configuration.grace;
    std::function<Reading()> work = [job = std::move(job)] { return perform(job); };
    std::optional<Reading> reading = co_await offThread<Reading>(std::move(work), bound, m_overdue);
    if (!reading) // a file system that hangs
        co_return Failure(make_error_code(FantasticalReadError::helperFailed));
    co_return *std::move(reading);
}

} // namespace quorvane
