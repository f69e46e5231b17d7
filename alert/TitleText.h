// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QString>

/// A meeting's title, made fit for a display.
namespace quorvane::TitleText {

/// The title on one line (runs of white space become one space), cut after 1500 characters, because laying
/// out a text of any length would delay the alert.
[[nodiscard]] QString displayed(const QString &title);

} // namespace quorvane::TitleText
