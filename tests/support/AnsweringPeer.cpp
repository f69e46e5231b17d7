// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "tests/support/AnsweringPeer.h"

#include <QFile>
#include <QFileInfo>
#include <QHostAddress>
#include <QProcess>
#include <QSslCertificate>
#include <QSslConfiguration>
#include <QSslKey>
#include <QTemporaryDir>

#include <utility>

using namespace Qt::StringLiterals;

namespace quorvane {

namespace {

const char *const heard = "heard";

QByteArray made(const QString &name)
{
    static const QTemporaryDir folder;
    static const QString script = QFileInfo(QStringLiteral(__FILE__)).path() + u"/certificates.py"_s;
    static const int result = QProcess::execute(u"/usr/bin/python3"_s, {script, folder.path()});
    QFile file(folder.filePath(name));
    return result == 0 && file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

qsizetype bodyLength(const QByteArray &head)
{
    const QByteArray name = "\r\ncontent-length:";
    const qsizetype at = head.toLower().indexOf(name);
    return at < 0 ? 0 : head.mid(at + name.size()).split('\r').first().trimmed().toLongLong();
}

} // namespace

AnsweringPeer::AnsweringPeer(std::function<Answer(const Request &)> answer)
    : m_answer(std::move(answer))
{
    QSslConfiguration configuration = QSslConfiguration::defaultConfiguration();
    configuration.setPeerVerifyMode(QSslSocket::VerifyNone);
    configuration.setLocalCertificate(QSslCertificate(certificate(), QSsl::Der));
    configuration.setPrivateKey(QSslKey(made(u"pinned.key"_s), QSsl::Ec));
    m_server.setSslConfiguration(configuration);
    connect(&m_server, &QTcpServer::pendingConnectionAvailable, this, &AnsweringPeer::take);
    m_server.listen(QHostAddress::LocalHost);
}

QUrl AnsweringPeer::url() const
{
    return QUrl(u"https://127.0.0.1:%1"_s.arg(m_server.serverPort()));
}

QByteArray AnsweringPeer::certificate()
{
    return made(u"pinned.cer"_s);
}

void AnsweringPeer::release()
{
    m_isHolding = false;
    for (const Held &held : std::exchange(m_held, {})) {
        if (held.socket)
            send(*held.socket, held.answer);
    }
}

void AnsweringPeer::take()
{
    while (auto *socket = qobject_cast<QSslSocket *>(m_server.nextPendingConnection())) {
        connect(socket, &QSslSocket::readyRead, this, [this, socket] { hear(*socket); });
        connect(socket, &QSslSocket::disconnected, this, [this, socket] { forget(*socket); });
        hear(*socket);
    }
}

void AnsweringPeer::hear(QSslSocket &socket)
{
    const QByteArray all = socket.property(heard).toByteArray() + socket.readAll();
    socket.setProperty(heard, all);
    const qsizetype headEnd = all.indexOf("\r\n\r\n");
    if (headEnd < 0 || all.size() - headEnd - 4 < bodyLength(all.left(headEnd)))
        return;
    socket.setProperty(heard, QByteArray());
    const QString target = QString::fromLatin1(all.split(' ').value(1));
    ++m_requests;
    const Answer answer = m_answer({target.section(u'?', 0, 0), all.mid(headEnd + 4)});
    if (m_isHolding)
        m_held.push_back({&socket, answer});
    else
        send(socket, answer);
}

void AnsweringPeer::forget(QSslSocket &socket)
{
    std::erase_if(m_held, [&](const Held &held) { return held.socket == &socket; });
    socket.deleteLater();
}

void AnsweringPeer::send(QSslSocket &socket, const Answer &answer)
{
    if (answer.delivery == Delivery::dropped)
        return socket.abort();
    if (answer.delivery == Delivery::garbage)
        socket.write("\0\1\2 no HTTP at all\r\n\r\n");
    else
        socket.write("HTTP/1.1 " + QByteArray::number(answer.status) + " Told\r\nContent-Length: " +
                     QByteArray::number(answer.body.size()) + "\r\nConnection: close\r\n\r\n" + answer.body);
    socket.disconnectFromHost();
}

} // namespace quorvane
