// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "network/SystemProxy.h"

#include <QCoroFuture>
#include <QPromise>
#include <QTimer>

#include <atomic>
#include <memory>
#include <thread>

namespace quorvane {

namespace {

/// What the thread and the waiting caller share; whoever settles it first wins.
struct ProxyAnswer
{
    QPromise<QNetworkProxy> promise;
    std::atomic_flag isSettled;

    void settle(const QNetworkProxy &proxy)
    {
        if (isSettled.test_and_set())
            return;
        promise.addResult(proxy);
        promise.finish();
    }
};

QNetworkProxy ask(const QUrl &url)
{
    const QList<QNetworkProxy> proxies = QNetworkProxyFactory::systemProxyForQuery(QNetworkProxyQuery(url));
    return proxies.isEmpty() ? QNetworkProxy(QNetworkProxy::NoProxy) : proxies.first();
}

} // namespace

QCoro::Task<QNetworkProxy> systemProxy(QUrl url, std::chrono::milliseconds limit)
{
    const auto answer = std::make_shared<ProxyAnswer>();
    answer->promise.start();
    const QFuture<QNetworkProxy> settled = answer->promise.future();
    QTimer bound;
    bound.setSingleShot(true);
    QObject::connect(&bound, &QTimer::timeout, &bound,
                     [answer] { answer->settle(QNetworkProxy(QNetworkProxy::NoProxy)); });
    bound.start(limit);
    std::thread([answer, url] { answer->settle(ask(url)); }).detach();
    const QNetworkProxy proxy = co_await settled;
    co_return proxy;
}

} // namespace quorvane
