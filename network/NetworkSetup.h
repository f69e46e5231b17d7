// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "network/HttpsClient.h"
#include "network/ServerTrust.h"

#include <QString>
#include <QUrl>

#include <chrono>
#include <functional>

namespace quorvane {

class Secrets;

/// What `Network` is made of, fixed for its life. All that is referred to must outlive it.
struct NetworkSetup
{
    Secrets &secrets;
    /// The setting "serverURL", empty when there is none.
    std::function<QString()> serverAddress;
    /// Unix time in seconds.
    std::function<double()> now;
    ServerTrust trust;
    /// The phone service, without a path.
    QUrl phoneService{QStringLiteral("https://api.pushover.net")};
    /// Bounds each request.
    std::chrono::milliseconds timeLimit = HttpsClient::defaultTimeLimit;
};

} // namespace quorvane
