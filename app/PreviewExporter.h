// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "core/Result.h"

#include <QString>

/// Pictures of every view with made-up content, drawn without any display: the same bytes each time on the
/// same machine.
namespace quorvane::PreviewExporter {

/// The exit status of a process that could not draw them.
inline constexpr int failed = 9;

/// Writes a PNG for each view into `folder`, which is made with all that is missing above it. Fails with
/// `PreviewError`. Needs a QGuiApplication made for this (`prepare`).
[[nodiscard]] Result<void> exportTo(const QString &folder);

/// Gives the process the platform, time zone and language of the pictures. Call it before the
/// QGuiApplication is made.
void prepare();

} // namespace quorvane::PreviewExporter
