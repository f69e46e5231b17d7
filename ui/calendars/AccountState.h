// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "model/SourceHealth.h"

#include <QString>

/// How an account is doing, in words.
namespace quorvane::AccountState {

/// Such as "Up to date · 1 min ago", at Unix time `now` in seconds.
[[nodiscard]] QString text(const SourceHealth &health, double now);

} // namespace quorvane::AccountState
