// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <functional>
#include <vector>

/// A small process that goes on when this one ends.
namespace quorvane::SideProcess {

/// Called in it, with the numbers that the kept files have there. It ends when this returns.
using Work = std::function<void(const std::vector<int> &kept)>;

/// Makes it: in a session of its own, so that no terminal's keys reach it, with nowhere to print to, so that
/// nobody waits for its output to end, with no signal held back, and with no other file of this process open
/// than `kept`. False when there can be none. It is a copy of this process: without other threads, and `work`
/// must touch little.
[[nodiscard]] bool begin(const std::vector<int> &kept, const Work &work);

} // namespace quorvane::SideProcess
