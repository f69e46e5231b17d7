// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "network/ServerState.h"

#include "core/StrictJson.h"

using namespace Qt::StringLiterals;

namespace quorvane {

Result<ServerState> ServerState::fromJson(const QByteArray &bytes)
{
    const Result<QJsonObject> object = jsonObject(bytes);
    if (!object)
        return Failure(object.error());
    StrictJson json(*object);
    ServerState state{
        .events = json.records<Meeting>("events"_L1),
        .acknowledged = json.strings("acknowledged"_L1),
    };
    const QJsonObject reported = json.object("health"_L1);
    if (json.failure())
        return Failure(json.failure());
    Result<ServerHealth> health = ServerHealth::fromJson(reported);
    if (!health)
        return Failure(health.error());
    state.health = *std::move(health);
    return state;
}

} // namespace quorvane
