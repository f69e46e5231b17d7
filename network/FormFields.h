// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QString>

#include <utility>
#include <vector>

namespace quorvane {

/// Names and values of a form, in any order.
using FormFields = std::vector<std::pair<QString, QString>>;

} // namespace quorvane
