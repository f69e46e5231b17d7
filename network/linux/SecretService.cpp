// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "network/linux/SecretService.h"

#include "network/linux/KeyringCalls.h"
#include "network/linux/KeyringCollections.h"
#include "network/linux/KeyringItems.h"
#include "network/linux/KeyringSecret.h"

#include <QDeadlineTimer>

namespace quorvane {

namespace {

constexpr std::chrono::seconds readTimeLimit(5);

/// The account's items, after unlocking one of them when all are locked.
QCoro::Task<Result<QList<QDBusObjectPath>>> writableItems(KeyringItems items, KeyringCollections collections)
{
    Result<KeyringItems::Found> found = co_await items.find();
    if (found && found->unlocked.isEmpty() && !found->locked.isEmpty()) {
        const Result<void> unlocked = co_await collections.unlock(found->locked.first());
        if (!unlocked)
            co_return Failure(unlocked.error());
        found = co_await items.find();
        // Adding another one now would hide the old one only until that is unlocked.
        if (found && found->unlocked.isEmpty() && !found->locked.isEmpty())
            co_return Failure(std::make_error_code(std::errc::permission_denied));
    }
    if (!found)
        co_return Failure(found.error());
    co_return std::move(found->unlocked);
}

} // namespace

SecretService::SecretService(QDBusConnection bus, std::chrono::milliseconds answerTime)
    : m_bus(std::move(bus))
    , m_answerTime(answerTime)
{
    KeyringSecret::registerTypes();
}

QCoro::Task<Result<std::optional<QByteArray>>> SecretService::read(QString account)
{
    const KeyringItems items(KeyringCalls(m_bus, QDeadlineTimer(readTimeLimit)), account);
    const Result<KeyringItems::Found> found = co_await items.find();
    if (!found)
        co_return Failure(found.error());
    if (!found->unlocked.isEmpty()) {
        const Result<QByteArray> value = co_await items.value(found->unlocked.first());
        if (!value)
            co_return Failure(value.error());
        co_return std::optional<QByteArray>(*value);
    }
    if (!found->locked.isEmpty())
        co_return Failure(std::make_error_code(std::errc::permission_denied));
    co_return std::optional<QByteArray>();
}

QCoro::Task<Result<void>> SecretService::write(QString account, QByteArray value)
{
    const KeyringCalls calls(m_bus);
    const KeyringItems items(calls, account);
    const std::chrono::milliseconds answerTime = m_answerTime;
    const KeyringCollections collections(calls, answerTime);
    const Result<QList<QDBusObjectPath>> existing = co_await writableItems(items, collections);
    if (!existing)
        co_return Failure(existing.error());
    if (existing->isEmpty()) {
        const Result<QDBusObjectPath> collection = co_await collections.forNewItems();
        if (!collection)
            co_return Failure(collection.error());
        co_return co_await items.add(*collection, value, answerTime);
    }
    Result<void> written = co_await items.replace(existing->first(), value);
    if (written)
        co_await items.remove(existing->sliced(1));
    co_return written;
}

} // namespace quorvane
