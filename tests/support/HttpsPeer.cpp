// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "tests/support/HttpsPeer.h"

#include <QFile>
#include <QFileInfo>
#include <QJsonDocument>
#include <QTemporaryDir>

using namespace Qt::StringLiterals;

namespace quorvane {

namespace {

const QString python = u"/usr/bin/python3"_s;

QString script(const QString &name)
{
    return QFileInfo(QStringLiteral(__FILE__)).path() + u'/' + name;
}

/// The folder with the certificates, made once for each test program.
QString certificates()
{
    static const QTemporaryDir folder;
    static const int made = QProcess::execute(python, {script(u"certificates.py"_s), folder.path()});
    return made == 0 ? folder.path() : QString();
}

} // namespace

HttpsPeer::HttpsPeer(const QString &certificate)
{
    m_process.setProcessChannelMode(QProcess::ForwardedErrorChannel);
    m_process.start(python, {script(u"https_peer.py"_s), certificates(), certificate});
    m_port = nextLine()["port"_L1].toInt();
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

QJsonObject HttpsPeer::tell(const QJsonObject &order)
{
    m_process.write(QJsonDocument(order).toJson(QJsonDocument::Compact) + '\n');
    return nextLine();
}

QByteArray HttpsPeer::der(const QString &certificate)
{
    QFile file(certificates() + u'/' + certificate + u".cer"_s);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

QJsonObject HttpsPeer::nextLine()
{
    while (!m_process.canReadLine()) {
        if (!m_process.waitForReadyRead(10'000))
            qFatal("The HTTPS peer does not answer");
    }
    return QJsonDocument::fromJson(m_process.readLine()).object();
}

} // namespace quorvane
