// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "model/RefreshTurns.h"

#include <QCoroFuture>

namespace quorvane {

RefreshTurns::RefreshTurns()
{
    m_patience.setSingleShot(true);
    m_patience.setInterval(slowAfter);
}

void RefreshTurns::begin()
{
    ++m_count;
    m_promise = std::make_unique<QPromise<void>>();
    m_promise->start();
    m_patience.start();
}

void RefreshTurns::end()
{
    m_patience.stop();
    const std::unique_ptr<QPromise<void>> promise = std::move(m_promise);
    promise->finish();
}

// Holds the future only: a promise that is destroyed is one that has ended.
QCoro::Task<> RefreshTurns::ended() const
{
    if (!m_promise)
        co_return;
    const QFuture<void> waited = m_promise->future();
    co_await waited;
}

} // namespace quorvane
