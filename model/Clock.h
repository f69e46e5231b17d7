// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

namespace quorvane {

/// The wall clock. Callable on any thread.
class Clock
{
public:
    virtual ~Clock() = default;

    /// Unix time in seconds.
    [[nodiscard]] virtual double now() const = 0;
};

} // namespace quorvane
