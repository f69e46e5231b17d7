// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QDateTime>
#include <QString>

#include <optional>

namespace quorvane {

/// How the calendars of one account are doing.
struct SourceHealth
{
    enum class State {
        /// Nothing has been heard of it yet.
        waiting,
        /// It is being read, and that takes a while.
        refreshing,
        upToDate,
        /// The last reading failed; what was known before still holds.
        failing,
    };

    QString account;
    State state = State::waiting;
    /// When it was last read without error.
    std::optional<QDateTime> lastRead;
    /// Path of the folder that the account lies in, where the user connected one and can disconnect it.
    QString folder;
    /// It is the second source and no account of the system's stores.
    bool isFantastical = false;

    bool operator==(const SourceHealth &) const = default;
};

} // namespace quorvane
