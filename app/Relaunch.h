// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "launch/linux/StartKind.h"

#include <QString>

#include <system_error>

namespace quorvane {

class ProcessImage;

/// Has the copy at `executable` go on in this process, as the copy here was started at `start`, but without a
/// window of its own accord: what was asked for once, a sample alert or a window by somebody's click, is not
/// asked for again. `kind` is who had started this copy. Returns only if that fails, with the system's error.
[[nodiscard]] std::error_code relaunch(const ProcessImage &start, const QString &executable, StartKind kind);

} // namespace quorvane
