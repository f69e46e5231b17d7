// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "core/Result.h"

#include <QByteArray>
#include <QString>
#include <QStringList>

#include <chrono>
#include <utility>
#include <vector>

namespace quorvane {

/// One run of another program.
struct ProcessRequest
{
    /// Absolute path of the executable.
    QString program;
    QStringList arguments;
    /// The whole environment, name and value; nothing is inherited.
    std::vector<std::pair<QByteArray, QByteArray>> environment;
    /// What the program finds on its standard input before the end of the file.
    QByteArray input;
    /// Counted from the moment at which the input pipe was closed after the last byte, and once more for
    /// writing that much.
    std::chrono::milliseconds timeLimit{15'000};
    /// What is kept of standard output and standard error, in bytes; more is read and thrown away.
    qsizetype outputLimit = 8'000'000;
    qsizetype errorLimit = 65'536;
};

/// How a program ended.
struct ProcessOutcome
{
    /// The exit status, or 128 and the number of the signal that ended the program.
    int exitStatus = 0;
    QByteArray output;
    /// Whether the program printed more than `ProcessRequest::outputLimit`.
    bool isOutputCut = false;
    QByteArray errorOutput;
};

/// Runs other programs. Implementations hold no state: calls may overlap, on any threads.
class ProcessRunner
{
public:
    ProcessRunner() = default;
    virtual ~ProcessRunner() = default;
    Q_DISABLE_COPY_MOVE(ProcessRunner)

    /// Runs the program to its end and returns what it said. It works in the root folder and inherits
    /// nothing: no open file, no blocked or ignored signal. At the time limit it is asked to end, half a
    /// second later it is killed; with it goes, always, what it started and left in its process group. Output
    /// that such a rest keeps open counts for one second more.
    ///
    /// Blocks, so never on the main thread: at most for twice the time limit and two seconds more, longer
    /// only while the system itself cannot end a killed program. Fails with the system's error when the
    /// program cannot be started or does not take its input: `std::errc::broken_pipe` when it closed it,
    /// `std::errc::timed_out` when it left it lying. An input that a pipe holds (65,536 bytes) counts as
    /// taken.
    [[nodiscard]] virtual Result<ProcessOutcome> run(const ProcessRequest &request) const = 0;
};

} // namespace quorvane
