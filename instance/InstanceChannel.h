// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "core/Result.h"
#include "instance/Activation.h"

#include <QObject>

namespace quorvane {

/// A place that one copy of the program at a time can hold, and through which it is reached by others. Main
/// thread only. `claim` and `release` block no longer than the system takes for an answer of its own.
class InstanceChannel : public QObject
{
    Q_OBJECT

public:
    /// How long `handOver` may take, in milliseconds.
    static constexpr int answerTime = 5'000;

    enum class Claim {
        /// It is this copy's now, or was already.
        held,
        /// Another copy holds it.
        taken,
        /// There is no such place here, such as a bus in a session without one, or it belongs to something
        /// else.
        unavailable,
    };

    /// Tries to hold the place, until `release` or the end of the process, however that comes.
    [[nodiscard]] virtual Claim claim() = 0;
    virtual void release() = 0;

    /// Hands a wish over to the copy that holds the place. Succeeds once that copy has taken it; fails when
    /// there is none, or none that answers.
    [[nodiscard]] virtual Result<void> handOver(const Activation &activation) = 0;

    /// Asks the copy that holds the place whether it is at work; `answered` says so. Does not wait.
    virtual void ask() = 0;

Q_SIGNALS:
    /// Another copy, or the desktop, wishes this one to show itself. Comes from the event loop only.
    void activated(const quorvane::Activation &activation);
    void answered();

protected:
    using QObject::QObject;
};

} // namespace quorvane
