// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "core/Meeting.h"
#include "core/Result.h"
#include "network/ServerHealth.h"

#include <QByteArray>
#include <QStringList>

#include <vector>

namespace quorvane {

/// What the user's own server alerts for.
struct ServerState
{
    std::vector<Meeting> events;
    /// Identifiers of the meetings that were acknowledged on the phone.
    QStringList acknowledged;
    ServerHealth health;

    bool operator==(const ServerState &) const = default;

    /// All keys are required; fails with `JsonError`.
    [[nodiscard]] static Result<ServerState> fromJson(const QByteArray &bytes);
};

} // namespace quorvane
