// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QString>

/// The standard streams of a process that carries out a command: scripts read its output, and find nothing
/// there but its own lines.
namespace quorvane::CommandLineStreams {

/// Call it before anything is opened. Streams that were handed over closed are put where nothing can be read
/// or written, or the next file would take their place; a reader that goes away ends nothing; and whatever
/// libraries have to say on standard error is not heard.
void prepare();

/// Prints one line to standard output.
void print(const QString &line);

/// Ends the process without waiting for threads that may hang in a service.
[[noreturn]] void end(int status);

} // namespace quorvane::CommandLineStreams
