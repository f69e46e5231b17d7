// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "network/linux/KeyringItems.h"

#include "network/linux/KeyringPrompt.h"
#include "network/linux/KeyringSecret.h"

#include <QDBusVariant>

#include <utility>

using namespace Qt::StringLiterals;

namespace quorvane {

namespace {

const QString itemInterface = u"Item"_s;

KeyringAttributes attributesOf(const QString &account)
{
    return {{u"service"_s, u"me.tarnel.Quorvane"_s}, {u"account"_s, account}};
}

QVariant secretOf(const KeyringSession &session, const QByteArray &value)
{
    // Without a character set, with which libsecret takes it for no text.
    const KeyringSecret secret{.session = session.path(), .value = value, .contentType = u"text/plain"_s};
    return QVariant::fromValue(secret);
}

} // namespace

KeyringItems::KeyringItems(KeyringCalls calls, QString account)
    : m_calls(std::move(calls))
    , m_account(std::move(account))
{
}

QCoro::Task<Result<KeyringItems::Found>> KeyringItems::find() const
{
    const QDBusMessage question = KeyringCalls::message(KeyringCalls::root, u"Service"_s, u"SearchItems"_s)
                                  << QVariant::fromValue(attributesOf(m_account));
    const Result<QVariantList> answer = co_await m_calls.answer(question, u"aoao"_s);
    if (!answer)
        co_return Failure(answer.error());
    const auto unlocked = qdbus_cast<QList<QDBusObjectPath>>(answer->at(0));
    const auto locked = qdbus_cast<QList<QDBusObjectPath>>(answer->at(1));
    const QList<QDBusObjectPath> ordered = co_await lastChangedFirst(unlocked);
    Found found{.unlocked = ordered, .locked = locked};
    co_return std::move(found);
}

QCoro::Task<Result<QByteArray>> KeyringItems::value(QDBusObjectPath item) const
{
    const Result<KeyringSession> session = co_await KeyringSession::open(m_calls);
    if (!session)
        co_return Failure(session.error());
    const QDBusMessage question = KeyringCalls::message(item, itemInterface, u"GetSecret"_s)
                                  << QVariant::fromValue(session->path());
    const Result<QVariantList> answer =
        co_await m_calls.answer(question, QLatin1StringView(KeyringSecret::signature));
    if (!answer)
        co_return Failure(answer.error());
    const auto secret = qdbus_cast<KeyringSecret>(answer->at(0));
    co_return QByteArray(secret.value);
}

QCoro::Task<Result<void>> KeyringItems::replace(QDBusObjectPath item, QByteArray value) const
{
    const Result<KeyringSession> session = co_await KeyringSession::open(m_calls);
    if (!session)
        co_return Failure(session.error());
    const QDBusMessage order = KeyringCalls::message(item, itemInterface, u"SetSecret"_s)
                               << secretOf(*session, value);
    const Result<QVariantList> answer = co_await m_calls.answer(order, QString());
    if (!answer)
        co_return Failure(answer.error());
    co_return Result<void>();
}

QCoro::Task<Result<void>> KeyringItems::add(QDBusObjectPath collection, QByteArray value,
                                            std::chrono::milliseconds answerTime) const
{
    const Result<KeyringSession> session = co_await KeyringSession::open(m_calls);
    if (!session)
        co_return Failure(session.error());
    const bool replacesEqual = true;
    const QDBusMessage order = KeyringCalls::message(collection, u"Collection"_s, u"CreateItem"_s)
                               << newItem() << secretOf(*session, value) << replacesEqual;
    const Result<QVariantList> answer = co_await m_calls.answer(order, u"oo"_s);
    if (!answer)
        co_return Failure(answer.error());
    // Some services ask the person about each new item.
    const Result<QDBusObjectPath> item =
        co_await KeyringPrompt::madeObject(m_calls.bus(), *answer, answerTime);
    if (!item)
        co_return Failure(item.error());
    co_return Result<void>();
}

QCoro::Task<> KeyringItems::remove(QList<QDBusObjectPath> items) const
{
    for (const QDBusObjectPath &item : std::as_const(items)) {
        const QDBusMessage order = KeyringCalls::message(item, itemInterface, u"Delete"_s);
        if (const Result<QVariantList> answer = co_await m_calls.answer(order, u"o"_s); !answer)
            co_return;
    }
}

QCoro::Task<QList<QDBusObjectPath>> KeyringItems::lastChangedFirst(QList<QDBusObjectPath> items) const
{
    qsizetype last = 0;
    quint64 lastTime = 0;
    for (qsizetype i = 0; items.size() > 1 && i < items.size(); ++i) {
        const Result<quint64> time = co_await changeTime(items.at(i));
        if (!time)
            co_return items;
        if (*time > lastTime) {
            last = i;
            lastTime = *time;
        }
    }
    if (!items.isEmpty())
        items.move(last, 0);
    co_return items;
}

QCoro::Task<Result<quint64>> KeyringItems::changeTime(QDBusObjectPath item) const
{
    QDBusMessage question = QDBusMessage::createMethodCall(KeyringCalls::service, item.path(),
                                                           u"org.freedesktop.DBus.Properties"_s, u"Get"_s);
    question << u"org.freedesktop.Secret.Item"_s << u"Modified"_s;
    const Result<QVariantList> answer = co_await m_calls.answer(question, u"v"_s);
    if (!answer)
        co_return Failure(answer.error());
    co_return answer->at(0).value<QDBusVariant>().variant().toULongLong();
}

QVariantMap KeyringItems::newItem() const
{
    KeyringAttributes attributes = attributesOf(m_account);
    // As other tools name what has no schema of its own; libsecret does not show items without this.
    attributes.insert(u"xdg:schema"_s, u"org.freedesktop.Secret.Generic"_s);
    return {{u"org.freedesktop.Secret.Item.Label"_s, u"Quorvane: "_s + m_account},
            {u"org.freedesktop.Secret.Item.Attributes"_s, QVariant::fromValue(attributes)}};
}

} // namespace quorvane
