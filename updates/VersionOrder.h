// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QStringView>

#include <compare>

/// Which of two versions is the newer one, as the feed's format has it: its documentation says that versions
/// are compared "in components split by character type" and ought to be numbers with dots. What it leaves
/// open is decided here:
///
/// - A run of digits 0 to 9 is a number of any length: 1.10 is above 1.9, and 1.02 is 1.2.
/// - A run of letters a to z or A to Z is a word. Words are compared by their characters' codes: a < b, but Z
/// < a.
/// - Everything else only separates: 1-2 is 1.2, and 1.0-b2 is 1.0b2.
/// - Components are compared from the left. A word is below any number.
/// - Where one version has no more components, it has 0: 1.2 < 1.2.1, 1.0 is 1.0.0, and 1.0b2 < 1.0.
namespace quorvane::VersionOrder {

[[nodiscard]] std::weak_ordering compare(QStringView left, QStringView right);

/// Whether a text has the form that `UpdateItem::version` wants.
[[nodiscard]] bool isVersion(QStringView text);

} // namespace quorvane::VersionOrder
