// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "network/TransportError.h"

#include <QMetaEnum>

namespace quorvane {

namespace {

class TransportCategory final : public std::error_category
{
public:
    const char *name() const noexcept override { return "Quorvane.Transport"; }
    std::string message(int value) const override
    {
        const char *key = QMetaEnum::fromType<QNetworkReply::NetworkError>().valueToKey(value);
        return key ? key : "unknown";
    }
};

} // namespace

std::error_code transportError(QNetworkReply::NetworkError error)
{
    static const TransportCategory category;
    return {static_cast<int>(error), category};
}

} // namespace quorvane
