// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "network/linux/KeyringCollections.h"

#include "network/linux/KeyringPrompt.h"

#include <utility>

using namespace Qt::StringLiterals;

namespace quorvane {

namespace {

const QString defaultAlias = u"default"_s;

QDBusMessage toService(const QString &method)
{
    return KeyringCalls::message(KeyringCalls::root, u"Service"_s, method);
}

} // namespace

KeyringCollections::KeyringCollections(KeyringCalls calls, std::chrono::milliseconds answerTime)
    : m_calls(std::move(calls))
    , m_answerTime(answerTime)
{
}

QCoro::Task<Result<void>> KeyringCollections::unlock(QDBusObjectPath object) const
{
    const QDBusMessage order = toService(u"Unlock"_s) << QVariant::fromValue(QList<QDBusObjectPath>{object});
    const Result<QVariantList> answer = co_await m_calls.answer(order, u"aoo"_s);
    if (!answer)
        co_return Failure(answer.error());
    const auto prompt = answer->at(1).value<QDBusObjectPath>();
    if (!KeyringCalls::isObject(prompt))
        co_return Result<void>();
    KeyringPrompt question(m_calls.bus(), prompt);
    const Result<QVariant> outcome = co_await question.ask(m_answerTime);
    if (!outcome)
        co_return Failure(outcome.error());
    co_return Result<void>();
}

QCoro::Task<Result<QDBusObjectPath>> KeyringCollections::forNewItems() const
{
    Result<QDBusObjectPath> collection = co_await named(defaultAlias);
    // No default may have been chosen yet, though there is the keyring that logging in unlocks.
    if (collection && !KeyringCalls::isObject(*collection))
        collection = co_await named(u"login"_s);
    if (collection && !KeyringCalls::isObject(*collection))
        collection = co_await create();
    if (!collection)
        co_return Failure(collection.error());
    const Result<void> unlocked = co_await unlock(*collection);
    if (!unlocked)
        co_return Failure(unlocked.error());
    co_return collection;
}

QCoro::Task<Result<QDBusObjectPath>> KeyringCollections::named(QString alias) const
{
    const QDBusMessage question = toService(u"ReadAlias"_s) << alias;
    const Result<QVariantList> answer = co_await m_calls.answer(question, u"o"_s);
    if (!answer)
        co_return Failure(answer.error());
    co_return answer->at(0).value<QDBusObjectPath>();
}

QCoro::Task<Result<QDBusObjectPath>> KeyringCollections::create() const
{
    const QVariantMap properties{{u"org.freedesktop.Secret.Collection.Label"_s, u"Default keyring"_s}};
    const QDBusMessage order = toService(u"CreateCollection"_s) << properties << defaultAlias;
    const Result<QVariantList> answer = co_await m_calls.answer(order, u"oo"_s);
    if (!answer)
        co_return Failure(answer.error());
    co_return co_await KeyringPrompt::madeObject(m_calls.bus(), *answer, m_answerTime);
}

} // namespace quorvane
