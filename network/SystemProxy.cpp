// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "network/SystemProxy.h"

#include "async/OffThread.h"

#include <QHostAddress>

using namespace Qt::StringLiterals;

namespace quorvane {

namespace {

bool isThisMachine(const QUrl &url)
{
    return url.host() == "localhost"_L1 || QHostAddress(url.host()).isLoopback();
}

QNetworkProxy ask(const QUrl &url)
{
    const QList<QNetworkProxy> proxies = QNetworkProxyFactory::systemProxyForQuery(QNetworkProxyQuery(url));
    return proxies.isEmpty() ? QNetworkProxy(QNetworkProxy::NoProxy) : proxies.first();
}

} // namespace

QCoro::Task<QNetworkProxy> systemProxy(QUrl url, std::chrono::milliseconds limit)
{
    if (isThisMachine(url))
        co_return QNetworkProxy(QNetworkProxy::NoProxy);
    std::function<QNetworkProxy()> job = [url] { return ask(url); };
    const std::optional<QNetworkProxy> proxy = co_await offThread<QNetworkProxy>(std::move(job), limit);
    co_return proxy.value_or(QNetworkProxy(QNetworkProxy::NoProxy));
}

} // namespace quorvane
