// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "network/HttpsRequest.h"
#include "network/ServerTrust.h"

#include <QNetworkAccessManager>
#include <QNetworkProxy>
#include <QNetworkReply>
#include <QObject>

namespace quorvane {

/// One request on its way, over a connection of its own: nothing is cached, kept or sent twice, and nothing
/// of it is sent before the server's certificate was accepted. Everything is told from the event loop.
class HttpsCall final : public QObject
{
    Q_OBJECT

public:
    /// Sends the request.
    HttpsCall(const HttpsRequest &request, ServerTrust trust, const QNetworkProxy &proxy);
    ~HttpsCall() override;

    /// To be read from, not to be connected to.
    [[nodiscard]] QNetworkReply &reply() { return *m_reply; }
    /// The answer's status; 0 while there is none.
    [[nodiscard]] int status() const;

    /// Nothing more is sent, received or told.
    void end();

Q_SIGNALS:
    void headCame();
    void bytesCame();
    /// The answer has ended, well or not.
    void finished();
    /// The connection is not one to use; what is under way on it has to be ended.
    void refused(QNetworkReply::NetworkError error);

private:
    void judgeCertificate();
    void openConnection();

    ServerTrust m_trust;
    bool m_isPinned;
    QNetworkAccessManager m_manager;
    QNetworkReply *m_reply = nullptr;
    int m_connections = 0;
};

} // namespace quorvane
