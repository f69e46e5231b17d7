// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "tests/support/HttpsPeer.h"

#include <QFile>
#include <QFileInfo>
#include <QJsonArray>
#include <QJsonDocument>
#include <QTemporaryDir>
#include <QTest>

using namespace Qt::StringLiterals;

namespace quorvane {

namespace {

const QString python = u"/usr/bin/python3"_s;

QString script(const QString &name)
{
    return QFileInfo(QStringLiteral(__FILE__)).path() + u'/' + name;
}

/// The folder with the certificates, made once for each test program.
const QString &certificates()
{
    static const QTemporaryDir folder;
    static const int made = QProcess::execute(python, {script(u"certificates.py"_s), folder.path()});
    static const QString path = made == 0 ? folder.path() : QString();
    return path;
}

} // namespace

HttpsPeer::HttpsPeer(const QString &certificate)
{
    m_process.setProcessChannelMode(QProcess::ForwardedErrorChannel);
    m_process.start(python, {script(u"https_peer.py"_s), certificates(), certificate});
    m_port = nextLine().value("port"_L1).toInt();
}

HttpsPeer::~HttpsPeer()
{
    m_process.kill();
    m_process.waitForFinished();
}

QUrl HttpsPeer::url(const QString &host) const
{
    return QUrl(u"https://%1:%2"_s.arg(host).arg(m_port));
}

void HttpsPeer::tell(const QJsonObject &behaviour)
{
    QJsonObject line = behaviour;
    if (!line.contains("path"_L1))
        line.insert("path"_L1, u"*"_s);
    exchange(line);
}

QList<HttpsPeer::Request> HttpsPeer::requests()
{
    QList<Request> requests;
    const QJsonArray logged = exchange({}).value("requests"_L1).toArray();
    for (const QJsonValue request : logged) {
        requests.append({.method = request["method"_L1].toString(),
                         .path = request["path"_L1].toString(),
                         .headers = request["headers"_L1].toObject(),
                         .body = request["body"_L1].toString().toLatin1()});
    }
    return requests;
}

int HttpsPeer::connections()
{
    return exchange({}).value("connections"_L1).toInt();
}

QByteArray HttpsPeer::received()
{
    return exchange({}).value("received"_L1).toString().toLatin1();
}

QByteArray HttpsPeer::der(const QString &certificate)
{
    QFile file(certificates() + u'/' + certificate + u".cer"_s);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

QList<QSslCertificate> HttpsPeer::authority()
{
    return {QSslCertificate(der(u"ca"_s), QSsl::Der)};
}

QJsonObject HttpsPeer::exchange(const QJsonObject &line)
{
    m_process.write(QJsonDocument(line).toJson(QJsonDocument::Compact) + '\n');
    return nextLine();
}

QJsonObject HttpsPeer::nextLine()
{
    while (!m_process.canReadLine()) {
        if (!m_process.waitForReadyRead(10'000)) {
            QTest::qFail("The HTTPS peer does not answer", __FILE__, __LINE__);
            return {};
        }
    }
    return QJsonDocument::fromJson(m_process.readLine()).object();
}

} // namespace quorvane
