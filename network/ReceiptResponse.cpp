// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "network/ReceiptResponse.h"

#include "core/StrictJson.h"

using namespace Qt::StringLiterals;

namespace quorvane {

Result<ReceiptResponse> ReceiptResponse::fromJson(const QByteArray &bytes)
{
    const Result<QJsonObject> object = jsonObject(bytes);
    if (!object)
        return Failure(object.error());
    StrictJson json(*object);
    const ReceiptResponse response{
        .status = json.integer("status"_L1),
        .acknowledged = json.integer("acknowledged"_L1),
        .expired = json.integer("expired"_L1),
    };
    if (json.failure())
        return Failure(json.failure());
    return response;
}

} // namespace quorvane
