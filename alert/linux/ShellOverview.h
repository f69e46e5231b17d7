// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

namespace quorvane {

/// Has GNOME's shell leave its overview of windows, which lies in front of every window and keeps the
/// keyboard to itself. Waits for nothing, and does nothing where there is no such shell.
void leaveShellOverview();

} // namespace quorvane
