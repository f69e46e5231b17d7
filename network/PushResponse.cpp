// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "network/PushResponse.h"

#include "core/StrictJson.h"

using namespace Qt::StringLiterals;

namespace quorvane {

Result<PushResponse> PushResponse::fromJson(const QByteArray &bytes)
{
    const Result<QJsonObject> object = jsonObject(bytes);
    if (!object)
        return Failure(object.error());
    StrictJson json(*object);
    PushResponse response{
        .status = json.integer("status"_L1),
        .receipt = json.optionalString("receipt"_L1),
    };
    if (json.failure())
        return Failure(json.failure());
    return response;
}

} // namespace quorvane
