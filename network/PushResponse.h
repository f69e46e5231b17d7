// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "core/Result.h"

#include <QByteArray>
#include <QString>

#include <optional>

namespace quorvane {

/// The phone service's answer to a message.
struct PushResponse
{
    /// 1 when the message was taken.
    qint64 status = 0;
    /// By which a message that repeats can be asked about and stopped.
    std::optional<QString> receipt;

    bool operator==(const PushResponse &) const = default;

    /// Fails with `JsonError`.
    [[nodiscard]] static Result<PushResponse> fromJson(const QByteArray &bytes);
};

} // namespace quorvane
