// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "alert/ChimePlayer.h"

#include <atomic>
#include <memory>

namespace quorvane {

/// Plays the program's own sounds through libcanberra, that is PulseAudio, PipeWire or ALSA. Each sound has a
/// short-lived thread of its own, so that a sound server that hangs holds up nothing; while one sound is not
/// finished the next is left out.
class CanberraChime final : public ChimePlayer
{
public:
    CanberraChime();

    void play(const QString &name) override;

private:
    /// Shared with the thread, which may outlive the player.
    std::shared_ptr<std::atomic_bool> m_isPlaying = std::make_shared<std::atomic_bool>(false);
};

} // namespace quorvane
