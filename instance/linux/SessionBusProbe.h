// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

namespace quorvane {

/// Whether connecting to the session bus ends within some seconds, if only because there is none. Qt and GLib
/// wait for a bus that hangs as long as that lasts. Needs no application object; blocks.
[[nodiscard]] bool isSessionBusResponsive();

/// From now on this process has no session bus. Call it before anything has connected.
void doWithoutSessionBus();

} // namespace quorvane
