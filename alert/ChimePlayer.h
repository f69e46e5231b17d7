// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QString>

namespace quorvane {

/// Plays short sounds by name. Called on the main thread; returns at once, also when the sound server hangs.
class ChimePlayer
{
public:
    virtual ~ChimePlayer() = default;

    /// Plays the sound once. An unknown name, a missing sound server or device is silence, never an error.
    virtual void play(const QString &name) = 0;
};

} // namespace quorvane
