// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

namespace quorvane {

/// Keeps what the program has in memory (credentials, titles, links) out of core dumps and out of what Qt,
/// GLib and Wayland print, whatever logging the environment asks for. Call it before anything is read.
void keepMemoryPrivate();

} // namespace quorvane
