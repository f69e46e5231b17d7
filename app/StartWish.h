// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "instance/Activation.h"

namespace quorvane {

/// What this start of the program wishes of a copy that runs already: that it show itself, if a person has
/// started this one, and only that it be there, if the session has.
[[nodiscard]] Activation activationOfStart(const QStringList &arguments);

} // namespace quorvane
