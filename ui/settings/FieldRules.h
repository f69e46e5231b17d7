// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QString>

/// What credentials look like. Each says why a text is none, as a sentence; nothing when it may be one.
namespace quorvane::FieldRules {

[[nodiscard]] QString pushoverUser(const QString &text);
[[nodiscard]] QString pushoverToken(const QString &text);
[[nodiscard]] QString serverToken(const QString &text);

} // namespace quorvane::FieldRules
