// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "network/linux/KeyringPrompt.h"

#include "network/linux/KeyringCalls.h"

#include <QCoroFuture>
#include <QDBusPendingCallWatcher>
#include <QDBusServiceWatcher>
#include <QTimer>

using namespace Qt::StringLiterals;

namespace quorvane {

namespace {

Result<QVariant> failure(std::errc reason)
{
    return Failure(std::make_error_code(reason));
}

} // namespace

QCoro::Task<Result<QDBusObjectPath>> KeyringPrompt::madeObject(QDBusConnection bus, QVariantList answer,
                                                               std::chrono::milliseconds answerTime)
{
    auto object = answer.at(0).value<QDBusObjectPath>();
    if (!KeyringCalls::isObject(object)) {
        KeyringPrompt question(bus, answer.at(1).value<QDBusObjectPath>());
        const Result<QVariant> outcome = co_await question.ask(answerTime);
        if (!outcome)
            co_return Failure(outcome.error());
        object = outcome->value<QDBusObjectPath>();
    }
    if (!KeyringCalls::isObject(object))
        co_return Failure(std::make_error_code(std::errc::bad_message));
    co_return std::move(object);
}

KeyringPrompt::KeyringPrompt(QDBusConnection bus, QDBusObjectPath prompt)
    : m_bus(std::move(bus))
    , m_prompt(std::move(prompt))
{
    m_outcome.start();
    m_bus.connect(KeyringCalls::service, m_prompt.path(), u"org.freedesktop.Secret.Prompt"_s, u"Completed"_s,
                  this, SLOT(onCompleted(bool, QDBusVariant)));
    auto *watcher = new QDBusServiceWatcher(KeyringCalls::service, m_bus,
                                            QDBusServiceWatcher::WatchForUnregistration, this);
    connect(watcher, &QDBusServiceWatcher::serviceUnregistered, this, &KeyringPrompt::onServiceGone);
    m_bus.connect(QString(), u"/org/freedesktop/DBus/Local"_s, u"org.freedesktop.DBus.Local"_s,
                  u"Disconnected"_s, this, SLOT(onServiceGone()));
}

QCoro::Task<Result<QVariant>> KeyringPrompt::ask(std::chrono::milliseconds answerTime)
{
    QTimer::singleShot(answerTime, this, [this] { settle(failure(std::errc::timed_out)); });
    const QString noParentWindow = u""_s;
    const QDBusMessage question = KeyringCalls::message(m_prompt, u"Prompt"_s, u"Prompt"_s) << noParentWindow;
    // Some services answer this call only when the person has answered.
    const auto limit = static_cast<int>(answerTime.count());
    auto *call = new QDBusPendingCallWatcher(m_bus.asyncCall(question, limit), this);
    connect(call, &QDBusPendingCallWatcher::finished, this, &KeyringPrompt::onShown);
    const QFuture<Result<QVariant>> outcome = m_outcome.future();
    co_return co_await outcome;
}

void KeyringPrompt::onCompleted(bool isDismissed, const QDBusVariant &result)
{
    settle(isDismissed ? failure(std::errc::operation_canceled) : result.variant());
}

void KeyringPrompt::onServiceGone()
{
    settle(failure(std::errc::not_connected));
}

void KeyringPrompt::onShown(QDBusPendingCallWatcher *call)
{
    if (call->isError())
        settle(Failure(KeyringCalls::errorOf(call->reply())));
}

void KeyringPrompt::settle(Result<QVariant> outcome)
{
    if (m_outcome.future().isFinished())
        return;
    m_outcome.addResult(std::move(outcome));
    m_outcome.finish();
}

} // namespace quorvane
