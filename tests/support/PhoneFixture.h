// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "tests/support/HttpsPeer.h"
#include "tests/support/ModelFixture.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QTest>

namespace quorvane {

/// A model with real HTTPS servers for the phone service and the user's own server.
class PhoneFixture final : public ModelFixture
{
public:
    PhoneFixture()
    {
        using namespace Qt::StringLiterals;
        phoneService = phone.url();
        pinnedCertificate = HttpsPeer::der(u"pinned"_s);
        keyring.values = {{Secrets::pushoverUser, QByteArray(30, 'u')},
                          {Secrets::pushoverToken, QByteArray(30, 't')}};
        phone.tell({{"body"_L1, uR"({"status":1,"receipt":"%1"})"_s.arg(QString(30, u'R'))}});
        server.tell({{"body"_L1, uR"({"ok":true})"_s}});
    }

    /// What a server says of itself that is in order.
    static QJsonObject health()
    {
        using namespace Qt::StringLiterals;
        return {{"configured"_L1, true},
                {"sources"_L1, QJsonObject{{"direct"_L1, u"ok"_s}}},
                {"delivery"_L1, u"ok"_s},
                {"scheduler"_L1, true},
                {"directSources"_L1, 1}};
    }

    void useServer()
    {
        addSetting(QStringLiteral("serverURL=%1").arg(server.url().toString()));
        keyring.values.insert(Secrets::serverToken, QByteArray(32, 's'));
    }

    /// The server's state from now on.
    void say(const QJsonObject &health, const QJsonArray &events = {}, const QJsonArray &acknowledged = {})
    {
        using namespace Qt::StringLiterals;
        const QJsonObject state{
            {"events"_L1, events}, {"acknowledged"_L1, acknowledged}, {"health"_L1, health}};
        server.tell({{"path"_L1, u"/state"_s},
                     {"body"_L1, QString::fromUtf8(QJsonDocument(state).toJson(QJsonDocument::Compact))}});
    }

    void refresh()
    {
        QTRY_VERIFY(!model->isRefreshing());
        clock.time += 6; // longer than a server that knows all is left alone
        launch(model->refresh());
        QTRY_VERIFY_WITH_TIMEOUT(!model->isRefreshing(), 15'000);
    }

    static QStringList paths(HttpsPeer &peer)
    {
        QStringList found;
        for (const QString &request : peer.requests())
            found.append(request.section(u' ', 1, 1));
        return found;
    }

    static QString lastBody(HttpsPeer &peer, const QString &path)
    {
        const QStringList requests = peer.requests().filter(u' ' + path + u' ');
        return requests.value(requests.size() - 1).section(u' ', -1);
    }

    HttpsPeer phone{QStringLiteral("pinned")};
    HttpsPeer server{QStringLiteral("pinned")};
};

} // namespace quorvane
