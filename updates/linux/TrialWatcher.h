// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "posix/FileDescriptor.h"
#include "updates/linux/VersionTrial.h"

#include <QString>

/// The small process that looks after one on trial.
namespace quorvane::TrialWatcher {

/// Makes the process that `VersionTrial::watch` speaks of; `executable` is what it starts in the end. What is
/// returned has to be kept, and is for `confirm`; invalid when there could be no such process.
[[nodiscard]] FileDescriptor begin(const QString &executable, const VersionTrial::Start &start,
                                   VersionTrial::WatchTimes times);

/// Has it end.
void confirm(const FileDescriptor &watcher);

} // namespace quorvane::TrialWatcher
