// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QByteArrayList>
#include <QString>

#include <system_error>
#include <vector>

#include <csignal>

namespace quorvane {

/// How this process was started: its arguments, its environment, and the signals that it was to ignore or to
/// hold back. Another program can be given the process in the same state.
class ProcessImage final
{
public:
    /// In what the next program is to be started otherwise than this one was.
    struct Changes
    {
        QByteArrayList withoutArguments;
        /// Names.
        QByteArrayList withoutVariables;
        /// Each is NAME=value and stands in place of a variable of that name.
        QByteArrayList variables;
    };

    /// Looks at the process as it is. Make it first of all in `main`, whose arguments these are: some of the
    /// environment is taken out of it soon after.
    ProcessImage(int argc, char **argv);

    /// Has the program at the absolute path `executable` take this one's place, in the same process: no open
    /// file but the standard streams goes with it, and nothing of what was done to signals. Returns only if
    /// that fails, with the system's error, and then nothing has changed but that every file is marked to be
    /// closed. Main thread only; others end with this program, whatever they do.
    [[nodiscard]] std::error_code replaceBy(const QString &executable, const Changes &changes) const;

private:
    QByteArrayList m_arguments;
    QByteArrayList m_environment;
    std::vector<int> m_ignoredSignals;
    sigset_t m_heldSignals;
};

} // namespace quorvane
