// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "ui/tray/linux/TrayKind.h"

#include <QString>

/// A plain text as the text of a Qt action, so that it reaches the panel as it is. Pure.
namespace quorvane::TrayLabel {

[[nodiscard]] QString of(const QString &text, TrayKind kind);

} // namespace quorvane::TrayLabel
