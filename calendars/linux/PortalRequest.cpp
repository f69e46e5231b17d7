// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "calendars/linux/PortalRequest.h"

#include <QCoroDBus>
#include <QCoroFuture>
#include <QDBusObjectPath>
#include <QDBusPendingReply>
#include <QDBusServiceWatcher>
#include <QRandomGenerator>

using namespace Qt::StringLiterals;

namespace quorvane {

namespace {

/// The portal answers with the request object before it shows anything.
constexpr int callTimeout = 10'000;

PortalRequest::Outcome outcomeOf(uint code)
{
    switch (code) {
    case 0:
        return PortalRequest::Outcome::answered;
    case 1:
        return PortalRequest::Outcome::cancelled;
    default:
        return PortalRequest::Outcome::failed;
    }
}

} // namespace

const QString PortalRequest::service = u"org.freedesktop.portal.Desktop"_s;
const QString PortalRequest::path = u"/org/freedesktop/portal/desktop"_s;

PortalRequest::PortalRequest(QDBusConnection bus)
    : m_bus(std::move(bus))
    , m_token(u"quorvane%1"_s.arg(QRandomGenerator::global()->generate64()))
{
    m_answer.start();
    // From whatever object: old portals do not make its path of the token.
    m_bus.connect(service, QString(), u"org.freedesktop.portal.Request"_s, u"Response"_s, this,
                  SLOT(onResponse(uint, QVariantMap, QDBusMessage)));
    auto *watcher = new QDBusServiceWatcher(service, m_bus, QDBusServiceWatcher::WatchForOwnerChange, this);
    connect(watcher, &QDBusServiceWatcher::serviceOwnerChanged, this, &PortalRequest::onPortalGone);
    m_bus.connect(QString(), u"/org/freedesktop/DBus/Local"_s, u"org.freedesktop.DBus.Local"_s,
                  u"Disconnected"_s, this, SLOT(onPortalGone()));
}

QCoro::Task<Result<PortalRequest::Response>> PortalRequest::send(QDBusMessage call)
{
    const QDBusPendingReply<QDBusObjectPath> reply = co_await m_bus.asyncCall(call, callTimeout);
    if (!reply.isValid())
        co_return Failure(std::make_error_code(std::errc::not_supported));
    m_handle = reply.value().path();
    settle();
    const QFuture<Response> answer = m_answer.future();
    co_return co_await answer;
}

void PortalRequest::onResponse(uint code, const QVariantMap &results, const QDBusMessage &signal)
{
    const Response response{.outcome = outcomeOf(code), .results = results};
    m_responses.insert(signal.path(), response);
    settle();
}

void PortalRequest::onPortalGone()
{
    m_isPortalGone = true;
    settle();
}

void PortalRequest::settle()
{
    const bool hasResponse = m_responses.contains(m_handle);
    if (m_handle.isEmpty() || m_answer.future().isFinished() || (!hasResponse && !m_isPortalGone))
        return;
    m_answer.addResult(m_responses.value(m_handle));
    m_answer.finish();
}

} // namespace quorvane
