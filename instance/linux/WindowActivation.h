// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "instance/Activation.h"

namespace quorvane {

/// Lets the next window that asks for it come to the front as `activation` permits. Needs the application
/// object; call it right before.
void allowWindow(const Activation &activation);

} // namespace quorvane
