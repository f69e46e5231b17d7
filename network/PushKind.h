// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

namespace quorvane {

enum class PushKind {
    /// Repeats on the phone until it is acknowledged there.
    alert,
    /// Rings once and shows that the phone is connected.
    test,
};

} // namespace quorvane
