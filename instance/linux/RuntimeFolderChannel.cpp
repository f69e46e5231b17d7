// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "instance/linux/RuntimeFolderChannel.h"

#include <QCryptographicHash>
#include <QDeadlineTimer>
#include <QFile>
#include <QJsonDocument>
#include <QJsonObject>
#include <QLocalSocket>
#include <QTimer>

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <sys/un.h>

#include <algorithm>
#include <cerrno>

using namespace Qt::StringLiterals;

namespace quorvane {

namespace {

constexpr qint64 longestMessage = 8'192;
const QByteArray accepted = "ok\n";
const QString wishKey = u"wish"_s;

QByteArray encoded(const Activation &activation)
{
    QVariantMap data = activation.platformData();
    data.insert(wishKey, static_cast<int>(activation.wish));
    return QJsonDocument(QJsonObject::fromVariantMap(data)).toJson(QJsonDocument::Compact) + '\n';
}

Activation decoded(const QByteArray &line)
{
    const QVariantMap data = QJsonDocument::fromJson(line).object().toVariantMap();
    Activation activation = Activation::fromPlatformData(data);
    activation.wish = static_cast<Activation::Wish>(std::clamp(data.value(wishKey).toInt(), 0, 2));
    return activation;
}

} // namespace

RuntimeFolderChannel::RuntimeFolderChannel(QString folder)
    : m_folder(std::move(folder))
{
}

RuntimeFolderChannel::~RuntimeFolderChannel() = default;

QString RuntimeFolderChannel::path(QLatin1StringView ending) const
{
    return m_folder + "/me.tarnel.Quorvane"_L1 + ending;
}

// The path, or what stands for one that is longer than an address may be (unix(7)).
RuntimeFolderChannel::Address RuntimeFolderChannel::address() const
{
    constexpr qsizetype longestPath = sizeof(sockaddr_un::sun_path) - 1;
    const QByteArray file = QFile::encodeName(path(".socket"_L1));
    if (file.size() <= longestPath)
        return {QFile::decodeName(file), Switch::off};
    const QByteArray digest = QCryptographicHash::hash(file, QCryptographicHash::Sha256).toHex();
    return {u"me.tarnel.Quorvane-"_s + QLatin1StringView(digest), Switch::on};
}

InstanceChannel::Claim RuntimeFolderChannel::claim()
{
    if (m_lock.isValid())
        return Claim::held;
    // The sticky bit keeps the file from being tidied away (XDG Base Directory Specification 0.8).
    FileDescriptor lock(::open(QFile::encodeName(path(".lock"_L1)).constData(), O_RDWR | O_CREAT | O_CLOEXEC,
                               S_IRUSR | S_IWUSR | S_ISVTX));
    if (!lock.isValid())
        return Claim::unavailable;
    if (::flock(lock.value(), LOCK_EX | LOCK_NB) != 0)
        return errno == EWOULDBLOCK ? Claim::taken : Claim::unavailable;
    m_lock = std::move(lock);
    listen();
    return Claim::held;
}

void RuntimeFolderChannel::release()
{
    m_server.reset();
    m_lock = FileDescriptor();
}

// What a killed copy left of its socket is removed: who has the lock is alone.
void RuntimeFolderChannel::listen()
{
    m_server = std::make_unique<QLocalServer>();
    connect(m_server.get(), &QLocalServer::newConnection, this, &RuntimeFolderChannel::serve);
    const Address place = address();
    if (place.isAbstract == Switch::on) {
        m_server->setSocketOptions(QLocalServer::AbstractNamespaceOption);
    } else {
        m_server->setSocketOptions(QLocalServer::UserAccessOption);
        QLocalServer::removeServer(place.name);
    }
    m_server->listen(place.name);
}

void RuntimeFolderChannel::serve()
{
    while (QLocalSocket *socket = m_server->nextPendingConnection()) {
        connect(socket, &QLocalSocket::disconnected, socket, &QObject::deleteLater);
        const auto read = [this, socket] {
            if (!socket->canReadLine()) {
                if (socket->bytesAvailable() > longestMessage)
                    socket->abort();
                return;
            }
            const Activation activation = decoded(socket->readLine(longestMessage));
            socket->write(accepted);
            socket->disconnectFromServer();
            Q_EMIT activated(activation);
        };
        connect(socket, &QLocalSocket::readyRead, this, read);
        read();
    }
}

Result<void> RuntimeFolderChannel::handOver(const Activation &activation)
{
    QLocalSocket socket;
    connectTo(socket);
    const QDeadlineTimer limit(answerTime);
    if (!socket.waitForConnected(answerTime))
        return Failure(std::make_error_code(std::errc::no_such_process));
    socket.write(encoded(activation));
    while (!socket.canReadLine()) {
        if (!socket.waitForReadyRead(static_cast<int>(limit.remainingTime())))
            return Failure(std::make_error_code(std::errc::timed_out));
    }
    return socket.readLine() == accepted
               ? Result<void>()
               : Result<void>(Failure(std::make_error_code(std::errc::protocol_error)));
}

void RuntimeFolderChannel::ask()
{
    auto *socket = new QLocalSocket(this);
    connect(socket, &QLocalSocket::connected, socket,
            [socket] { socket->write(encoded({.wish = Activation::Wish::nothing})); });
    connect(socket, &QLocalSocket::readyRead, this, [this, socket] {
        if (socket->canReadLine() && socket->readLine() == accepted)
            Q_EMIT answered();
    });
    QTimer::singleShot(answerTime, socket, &QObject::deleteLater);
    connectTo(*socket);
}

void RuntimeFolderChannel::connectTo(QLocalSocket &socket) const
{
    const Address place = address();
    if (place.isAbstract == Switch::on)
        socket.setSocketOptions(QLocalSocket::AbstractNamespaceOption);
    socket.connectToServer(place.name);
}

} // namespace quorvane
