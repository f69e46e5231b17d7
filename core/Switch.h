// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

namespace quorvane {

/// What a switch is set to.
enum class Switch { off, on };

} // namespace quorvane
