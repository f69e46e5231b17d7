// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "tests/model/SoakPhone.h"

#include <QUrlQuery>

using namespace Qt::StringLiterals;

namespace quorvane {

namespace {

const QString messages = u"/1/messages.json"_s;
const QString cancelByTag = u"/1/receipts/cancel_by_tag/"_s;

} // namespace

SoakPhone::SoakPhone(std::function<double()> now)
    : peer([this](const AnsweringPeer::Request &request) { return answer(request); })
    , m_now(std::move(now))
{
}

void SoakPhone::set(State state)
{
    m_state = state;
    if (state == State::slow || state == State::mute)
        peer.hold();
    else
        peer.release();
}

void SoakPhone::forget()
{
    ringing.clear();
    answersAfter.clear();
    m_messages.clear();
}

AnsweringPeer::Answer SoakPhone::answer(const AnsweringPeer::Request &request)
{
    using enum AnsweringPeer::Delivery;
    ++m_order;
    if (request.path == messages)
        ringing[QUrlQuery(QString::fromLatin1(request.body)).queryItemValue(u"tags"_s)].lastAt = m_now();
    if (request.path.startsWith(cancelByTag))
        ringing[request.path.mid(cancelByTag.size(), 64)].lastCancellation = m_order;
    switch (m_state) {
    case State::failing:
        return {.status = 500};
    case State::shuttingOut:
        return {.status = 429};
    case State::dropping:
        return {.delivery = dropped};
    case State::garbled:
        return {.delivery = garbage};
    case State::mute:
        return {.body = take(request), .delivery = dropped};
    case State::fine:
    case State::slow:
        break;
    }
    return {.body = take(request)};
}

QByteArray SoakPhone::take(const AnsweringPeer::Request &request)
{
    if (request.path == messages)
        return takeMessage(request.body);
    return request.path.startsWith(cancelByTag) ? R"({"status":1})"
                                                : receipt(request.path.section(u'/', -1).left(30));
}

QByteArray SoakPhone::takeMessage(const QByteArray &form)
{
    const QUrlQuery fields(QString::fromLatin1(form));
    const QString meeting = fields.queryItemValue(u"tags"_s);
    Ringing &heard = ringing[meeting];
    heard.lastMessage = m_order;
    ++taken;
    if (heard.firstAt == 0)
        heard.firstAt = m_now();
    if (answersAfter.contains(meeting) && heard.answerAt == 0)
        heard.answerAt = m_now() + answersAfter[meeting];
    const QString number = QString::number(m_order).rightJustified(30, u'0');
    m_messages[number] = {meeting, m_now() + fields.queryItemValue(u"expire"_s).toDouble()};
    return uR"({"status":1,"receipt":"%1"})"_s.arg(number).toLatin1();
}

QByteArray SoakPhone::receipt(const QString &number)
{
    const Message message = m_messages.value(number);
    const double answeredAt = ringing.value(message.meeting).answerAt;
    const bool isAnswered = answeredAt > 0 && answeredAt <= m_now();
    const bool isExpired = message.expiresAt <= m_now();
    return uR"({"status":1,"acknowledged":%1,"expired":%2})"_s.arg(isAnswered ? 1 : 0)
        .arg(isExpired ? 1 : 0)
        .toLatin1();
}

} // namespace quorvane
