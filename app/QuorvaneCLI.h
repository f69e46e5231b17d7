// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QStringList>

#include <optional>

namespace quorvane {

/// The command line of the executable: what it does instead of starting the application. A command prints
/// plain lines to standard output, nothing to standard error, opens no window and needs no display.
class QuorvaneCLI final
{
public:
    /// Exit status for arguments that name no command.
    static constexpr int unknownCommand = 64;

    /// Sets the process up for the command in `arguments`. Call it first of all: Qt looks at the environment
    /// once, and files are opened where standard streams are missing.
    static void prepare(const QStringList &arguments);

    /// Handles `arguments` (without the program's own name). The exit status to end with, or absent when the
    /// application is to start. Does not return from a command that waits for a service, which may still hold
    /// a thread when its time is over.
    [[nodiscard]] static std::optional<int> run(const QStringList &arguments);
};

} // namespace quorvane
