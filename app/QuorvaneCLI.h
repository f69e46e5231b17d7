// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QStringList>

#include <optional>

namespace quorvane {

/// The command line of the executable: what it does instead of starting the application.
class QuorvaneCLI final
{
public:
    /// Exit status for arguments that name no command.
    static constexpr int unknownCommand = 64;

    /// Sets the process up for the command in `arguments`. Call it first of all: Qt looks at the environment
    /// once.
    static void prepare(const QStringList &arguments);

    /// Handles `arguments` (without the program's own name). The exit status to end with, or absent when the
    /// application is to start.
    [[nodiscard]] static std::optional<int> run(const QStringList &arguments);
};

} // namespace quorvane
