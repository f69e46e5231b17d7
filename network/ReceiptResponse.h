// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "core/Result.h"

#include <QByteArray>

namespace quorvane {

/// What the phone service knows of a message that repeats.
struct ReceiptResponse
{
    /// 1 when the service knows the receipt.
    qint64 status = 0;
    /// 1 once the person has acknowledged the message on the phone.
    qint64 acknowledged = 0;
    /// 1 once it repeats no longer.
    qint64 expired = 0;

    bool operator==(const ReceiptResponse &) const = default;

    /// Fails with `JsonError`.
    [[nodiscard]] static Result<ReceiptResponse> fromJson(const QByteArray &bytes);
};

} // namespace quorvane
