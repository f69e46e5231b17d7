// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "network/OKResponse.h"

#include "core/StrictJson.h"

using namespace Qt::StringLiterals;

namespace quorvane {

Result<OKResponse> OKResponse::fromJson(const QByteArray &bytes)
{
    const Result<QJsonObject> object = jsonObject(bytes);
    if (!object)
        return Failure(object.error());
    StrictJson json(*object);
    const OKResponse response{.ok = json.boolean("ok"_L1)};
    if (json.failure())
        return Failure(json.failure());
    return response;
}

} // namespace quorvane
