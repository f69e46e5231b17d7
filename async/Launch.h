// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QCoroTask>

namespace quorvane {

/// Lets a task run on by itself. Launched tasks handle their own failures; this names the places where nobody
/// waits.
inline void launch(QCoro::Task<> task)
{
    // A task that has not ended detaches from its handle, and its frame goes when it ends.
    Q_UNUSED(task)
}

} // namespace quorvane
