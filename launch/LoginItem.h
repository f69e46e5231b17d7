// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "core/Result.h"

#include <QtGlobal>

namespace quorvane {

/// The entry by which the desktop itself starts this program at login, without looking after it any further.
/// Where the service manager's agent does that, it is a duplicate. Both calls may be repeated.
class LoginItem
{
public:
    LoginItem() = default;
    virtual ~LoginItem() = default;
    Q_DISABLE_COPY_MOVE(LoginItem)

    [[nodiscard]] virtual Result<void> add() = 0;
    /// Succeeds too when there is none.
    [[nodiscard]] virtual Result<void> remove() = 0;
};

} // namespace quorvane
