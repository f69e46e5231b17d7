// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "commands/PrintLine.h"
#include "core/Meeting.h"
#include "core/Result.h"

#include <QCoroTask>

#include <vector>

namespace quorvane {

class FantasticalReader;
class Network;
class Preferences;
class Secrets;

/// Tries the calendar cache's reader and the user's own server, and tells how they stand in counts alone.
class ConnectionCommand final
{
public:
    enum class Mode {
        verify,
        /// Uploads the alert schedule of what was read and what was added by hand as well.
        sync,
    };

    /// All of them must outlive the command.
    struct Parts
    {
        const Preferences &preferences;
        const FantasticalReader &fantasticalReader;
        const Secrets &secrets;
        Network &network;
    };

    ConnectionCommand(Parts parts, PrintLine print);

    /// Stops at the first failure. Gives an `ExitStatus`: `success`, `serverNotReady` or `connectionFailed`.
    [[nodiscard]] QCoro::Task<int> run(Mode mode) const;

private:
    [[nodiscard]] QCoro::Task<Result<int>> check(Mode mode) const;
    [[nodiscard]] QCoro::Task<Result<void>> upload(std::vector<Meeting> meetings) const;

    Parts m_parts;
    PrintLine m_print;
};

} // namespace quorvane
