// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QByteArray>
#include <QUrl>

#include <optional>

namespace quorvane {

/// One request over HTTPS: POST with a body, GET without.
struct HttpsRequest
{
    QUrl url;
    QByteArray contentType;
    /// The value of the header "Authorization"; empty for none.
    QByteArray authorization;
    std::optional<QByteArray> body;
    /// The value of the header "Range"; empty for none.
    QByteArray range{};
};

} // namespace quorvane
