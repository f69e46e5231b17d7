// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "calendars/records/FantasticalSnapshot.h"
#include "core/Result.h"
#include "process/ProcessRunner.h"

#include <QCoroTask>
#include <QString>
#include <QStringList>

#include <chrono>
#include <functional>
#include <memory>

namespace quorvane {

/// Reads the calendar cache beside the system's store by running the reader executable, a process for each
/// call. The cache itself is never opened here. Main thread only.
class FantasticalReader final
{
public:
    struct Configuration
    {
        /// Path of the reader executable; empty when the program has no resources. Asked at each call.
        std::function<QString()> program;
        /// The user's home folder.
        QString home;
        /// Path of the folder that the user chose for the cache; empty when there is none. Asked at each
        /// call.
        std::function<QString()> folder;
        /// Shared, since a reading may outlive this object.
        std::shared_ptr<const ProcessRunner> runner;
        /// How long the reader may take once it has its input.
        std::chrono::milliseconds timeLimit = ProcessRequest{}.timeLimit;
        /// What is added to twice that before a reading is given up, as on a file system that hangs.
        std::chrono::milliseconds grace{5'000};
    };

    explicit FantasticalReader(Configuration configuration);

    /// Runs the reader once; it leaves out the calendars whose identifiers are in `excluded`. Calls may
    /// overlap and may be abandoned, and this object may go meanwhile. Fails with `FantasticalReadError`, or
    /// with the system's error when the reader cannot be started or does not take its input; in the worst
    /// case after twice the time limit and the grace. While a reading that took longer has not ended, every
    /// call fails at once with `helperFailed`: what hangs is not to pile up.
    [[nodiscard]] QCoro::Task<Result<FantasticalSnapshot>> read(QStringList excluded) const;

private:
    Configuration m_configuration;
    /// How many readings were given up and have not ended.
    std::shared_ptr<int> m_overdue = std::make_shared<int>(0);
};

} // namespace quorvane
