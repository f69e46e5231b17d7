// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "tests/model/SoakServer.h"

#include <QJsonDocument>
#include <QJsonObject>

using namespace Qt::StringLiterals;

namespace quorvane {

SoakServer::SoakServer()
    : peer([this](const AnsweringPeer::Request &request) { return answer(request); })
{
}

bool SoakServer::rings(const QString &meeting) const
{
    return state != State::unconfigured && m_scheduled.contains(meeting);
}

void SoakServer::forget()
{
    answered.clear();
    toldOf.clear();
}

AnsweringPeer::Answer SoakServer::answer(const AnsweringPeer::Request &request)
{
    switch (state) {
    case State::failing:
        return {.status = 500};
    case State::dropping:
        return {.delivery = AnsweringPeer::Delivery::dropped};
    case State::fine:
    case State::refusing:
    case State::unconfigured:
        break;
    }
    return {.body = take(request)};
}

QByteArray SoakServer::take(const AnsweringPeer::Request &request)
{
    if (request.path == u"/state"_s)
        return report();
    const QJsonObject said = QJsonDocument::fromJson(request.body).object();
    if (request.path == u"/ack"_s)
        toldOf.insert(said["id"_L1].toString());
    if (request.path != u"/snapshot"_s)
        return R"({"ok":true})";
    if (state == State::refusing)
        return R"({"ok":false})";
    m_events = said["events"_L1].toArray();
    m_scheduled.clear();
    for (const QJsonValue event : std::as_const(m_events))
        m_scheduled.insert(event["id"_L1].toString());
    return R"({"ok":true})";
}

QByteArray SoakServer::report() const
{
    const QJsonObject health{{"configured"_L1, state != State::unconfigured},
                             {"sources"_L1, QJsonObject{{"mac"_L1, u"ok"_s}}},
                             {"delivery"_L1, u"ok"_s},
                             {"scheduler"_L1, true},
                             {"directSources"_L1, 0}};
    const QJsonObject whole{{"events"_L1, m_events},
                            {"acknowledged"_L1, QJsonArray::fromStringList(answered.values())},
                            {"health"_L1, health}};
    return QJsonDocument(whole).toJson(QJsonDocument::Compact);
}

} // namespace quorvane
