// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

namespace quorvane {

/// Lights displays that the desktop has blanked and keeps them lit. Called on the main thread; returns at
/// once. A desktop that offers no way is left as it is.
class DisplayWaker
{
public:
    virtual ~DisplayWaker() = default;

    /// Lights the displays and asks that they stay lit until `release`.
    virtual void wake() = 0;
    virtual void release() = 0;
};

} // namespace quorvane
