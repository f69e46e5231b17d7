// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QByteArray>
#include <QObject>
#include <QPointer>
#include <QSslServer>
#include <QSslSocket>
#include <QString>
#include <QUrl>

#include <functional>
#include <vector>

namespace quorvane {

/// An HTTPS server in this process that makes each answer anew, by a function of the test's. HttpsPeer says
/// the same to everybody and keeps what it hears for ever; this one is for tests that talk for hours.
class AnsweringPeer final : public QObject
{
    Q_OBJECT

public:
    enum class Delivery {
        whole,
        /// The connection closes without an answer.
        dropped,
        /// No HTTP.
        garbage,
    };
    struct Request
    {
        /// Without the query.
        QString path;
        QByteArray body;
    };
    struct Answer
    {
        int status = 200;
        QByteArray body;
        Delivery delivery = Delivery::whole;
    };

    explicit AnsweringPeer(std::function<Answer(const Request &)> answer);

    [[nodiscard]] QUrl url() const;
    /// In DER encoding; the same for all peers of a program.
    [[nodiscard]] static QByteArray certificate();

    /// Keeps answers back until `release`.
    void hold() { m_isHolding = true; }
    void release();

    /// Number of answers kept back.
    [[nodiscard]] qsizetype held() const { return static_cast<qsizetype>(m_held.size()); }
    /// Number of requests up to now.
    [[nodiscard]] int requests() const { return m_requests; }

private:
    struct Held
    {
        QPointer<QSslSocket> socket;
        Answer answer;
    };

    void take();
    void hear(QSslSocket &socket);
    void forget(QSslSocket &socket);
    static void send(QSslSocket &socket, const Answer &answer);

    std::function<Answer(const Request &)> m_answer;
    QSslServer m_server;
    std::vector<Held> m_held;
    bool m_isHolding = false;
    int m_requests = 0;
};

} // namespace quorvane
