// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "core/Result.h"

#include <QtGlobal>

namespace quorvane {

/// The entry by which the desktop itself starts this program at login, without looking after it any further.
/// Where the service manager's agent does that, it is a duplicate. Every call may be repeated.
class LoginItem
{
public:
    LoginItem() = default;
    virtual ~LoginItem() = default;
    Q_DISABLE_COPY_MOVE(LoginItem)

    [[nodiscard]] virtual Result<void> add() = 0;
    /// Succeeds too when there is none.
    [[nodiscard]] virtual Result<void> remove() = 0;
    /// Takes back what `remove` did to an entry that came with the system, and registers nothing by itself.
    [[nodiscard]] virtual Result<void> restore() = 0;
};

} // namespace quorvane
