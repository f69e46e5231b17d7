// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "launch/linux/StartKind.h"

#include <QString>

#include <system_error>

namespace quorvane {

class ProcessImage;

/// How the program comes up again after an update.
enum class RelaunchedAs { trayOnly, window };

/// Has the copy at `executable` go on in this process, as the copy here was started at `start`. What was
/// asked for once, a sample alert or a window by somebody's click, is not asked for again. Where the service
/// manager had started it, it comes up without a window in any case (`StartKind::agent`), and opens one by
/// itself if there was one. Returns only if that fails, with the system's error.
[[nodiscard]] std::error_code relaunch(const ProcessImage &start, const QString &executable, StartKind kind,
                                       RelaunchedAs wanted);

} // namespace quorvane
