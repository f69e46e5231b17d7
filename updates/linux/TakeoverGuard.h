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

/// Has this process become the version that ROOT/current names, by `start`, after that one was put in place
/// of this one. A small process brings this version back, in a process of its own, should the new one end or
/// hang before its trial; one that cannot be run is given up at once, for this version in this process.
/// Returns only if not even that can be: the process has to end then.
void takeOver(const InstalledVersions &installed, const VersionTrial::Start &start,
              std::chrono::milliseconds patience = usualPatience);

} // namespace quorvane::TakeoverGuard
