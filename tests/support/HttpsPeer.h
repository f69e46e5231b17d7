// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QByteArray>
#include <QJsonObject>
#include <QProcess>
#include <QSslCertificate>
#include <QStringList>
#include <QUrl>

#include <utility>

namespace quorvane {

/// An HTTPS server in a process of its own: https_peer.py, which lists what it can be told and what it logs.
class HttpsPeer final
{
public:
    /// Serves with one of the certificates that certificates.py makes.
    explicit HttpsPeer(const QString &certificate);
    ~HttpsPeer();
    Q_DISABLE_COPY_MOVE(HttpsPeer)

    [[nodiscard]] QUrl url(const QString &host = QStringLiteral("127.0.0.1")) const;

    /// Gives an order (nothing: none) and returns the log.
    QJsonObject tell(const QJsonObject &order = {});

    [[nodiscard]] int connections() { return tell()[QLatin1StringView("connections")].toInt(); }
    [[nodiscard]] QStringList requests()
    {
        return tell()[QLatin1StringView("requests")].toVariant().toStringList();
    }

    /// Those since the last call.
    [[nodiscard]] QStringList newRequests()
    {
        const QStringList all = requests();
        return all.mid(std::exchange(m_seen, all.size()));
    }

    /// A certificate in DER encoding.
    [[nodiscard]] static QByteArray der(const QString &certificate);

private:
    QJsonObject nextLine();

    QProcess m_process;
    int m_port = 0;
    qsizetype m_seen = 0;
};

} // namespace quorvane
