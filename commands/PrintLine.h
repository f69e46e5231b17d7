// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QString>

#include <functional>

namespace quorvane {

/// Where a command's lines go; they come without their ends.
using PrintLine = std::function<void(const QString &line)>;

} // namespace quorvane
