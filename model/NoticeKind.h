// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

namespace quorvane {

/// What a passing message tells of.
enum class NoticeKind {
    success,
    /// Something did not work or needs the user.
    problem,
};

} // namespace quorvane
