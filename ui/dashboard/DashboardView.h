// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QUrl>

class QQmlEngine;

/// The dashboard's QML module.
namespace quorvane::DashboardView {

/// Makes the module's types known, and those of the modules it is made of. Any number of times.
void registerTypes();

/// The root view. Its required property is `dashboard`.
[[nodiscard]] QUrl source();

} // namespace quorvane::DashboardView
