// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "core/Result.h"

#include <QByteArray>

namespace quorvane {

/// The user's own server's answer to whatever it was told.
struct OKResponse
{
    bool ok = false;

    bool operator==(const OKResponse &) const = default;

    /// Fails with `JsonError`.
    [[nodiscard]] static Result<OKResponse> fromJson(const QByteArray &bytes);
};

} // namespace quorvane
