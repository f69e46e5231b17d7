// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "updates/linux/InstalledVersions.h"
#include "updates/linux/VersionTrial.h"

#include <chrono>

/// Sees to it that there is a program while this process becomes a new version of it: that one may not even
/// come to the beginning of its trial, from which on it is looked after.
namespace quorvane::TakeoverGuard {

/// How long the new version may take to begin its trial.
inline constexpr std::chrono::milliseconds usualPatience{30'000};

/// To be called right before this process becomes the version that ROOT/current names. Has a small process
/// bring this version back, by `start`, should the new one end or hang before its trial. False when there can
/// be no such process.
[[nodiscard]] bool begin(const InstalledVersions &installed, const VersionTrial::Start &start,
                         std::chrono::milliseconds patience = usualPatience);

} // namespace quorvane::TakeoverGuard
