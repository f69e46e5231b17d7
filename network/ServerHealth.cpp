// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "network/ServerHealth.h"

#include "core/StrictJson.h"

using namespace Qt::StringLiterals;

namespace quorvane {

Result<ServerHealth> ServerHealth::fromJson(const QJsonObject &object)
{
    StrictJson json(object);
    ServerHealth health{
        .configured = json.boolean("configured"_L1),
        .sources = json.textsByName("sources"_L1),
        .snapshotAge = json.optionalNumber("snapshotAge"_L1),
        .delivery = json.string("delivery"_L1),
        .scheduler = json.boolean("scheduler"_L1),
        .directSources = json.integer("directSources"_L1),
    };
    if (json.failure())
        return Failure(json.failure());
    return health;
}

} // namespace quorvane
