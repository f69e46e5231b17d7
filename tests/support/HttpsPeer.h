// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QByteArray>
#include <QJsonObject>
#include <QList>
#include <QProcess>
#include <QSslCertificate>
#include <QUrl>

namespace quorvane {

/// An HTTPS server in a process of its own (https_peer.py, which lists the behaviours) on a port of its own.
class HttpsPeer final
{
public:
    struct Request
    {
        QString method;
        /// With the query.
        QString path;
        QJsonObject headers;
        QByteArray body;
    };

    /// Serves with one of the certificates that certificates.py makes.
    explicit HttpsPeer(const QString &certificate);
    ~HttpsPeer();
    Q_DISABLE_COPY_MOVE(HttpsPeer)

    [[nodiscard]] QUrl url(const QString &host = QStringLiteral("127.0.0.1")) const;

    /// How requests are answered from now on: all, or those for `behaviour["path"]`.
    void tell(const QJsonObject &behaviour);

    [[nodiscard]] QList<Request> requests();
    /// The number of connections made to it.
    [[nodiscard]] int connections();
    /// Every byte that came over encrypted connections.
    [[nodiscard]] QByteArray received();

    /// A certificate in DER encoding.
    [[nodiscard]] static QByteArray der(const QString &certificate);
    /// The authority that has signed "trusted".
    [[nodiscard]] static QList<QSslCertificate> authority();

private:
    QJsonObject exchange(const QJsonObject &line);
    QJsonObject nextLine();

    QProcess m_process;
    int m_port = 0;
};

} // namespace quorvane
