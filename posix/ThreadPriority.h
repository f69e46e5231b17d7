// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

namespace quorvane {

/// Lets the calling thread, and every program that it starts, give way to the rest of the machine. There is
/// no way back: meant for threads that work in the background and end.
void lowerThreadPriority();

} // namespace quorvane
