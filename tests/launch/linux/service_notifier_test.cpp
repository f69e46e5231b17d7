// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "launch/linux/ServiceNotifier.h"
#include "posix/FileDescriptor.h"

#include <QTemporaryDir>
#include <QTest>

#include <cstring>

#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

using namespace Qt::StringLiterals;
using namespace quorvane;

namespace {

/// The service manager's end.
class Listener final
{
public:
    explicit Listener(const QByteArray &name)
        : m_socket(::socket(AF_UNIX, SOCK_DGRAM | SOCK_NONBLOCK, 0))
    {
        sockaddr_un address{.sun_family = AF_UNIX, .sun_path = {}};
        std::memcpy(address.sun_path, name.constData(), std::size_t(name.size()));
        if (name.startsWith('@'))
            address.sun_path[0] = '\0';
        const auto size = static_cast<socklen_t>(offsetof(sockaddr_un, sun_path) + std::size_t(name.size()));
        if (!m_socket.isValid() ||
            ::bind(m_socket.value(), reinterpret_cast<const sockaddr *>(&address), size) != 0)
            qFatal("bind: %s", std::strerror(errno));
        qputenv("NOTIFY_SOCKET", name);
    }

    /// What arrived since the last call.
    QByteArrayList heard() const
    {
        QByteArrayList messages;
        char buffer[256];
        ssize_t size = 0;
        while ((size = ::recv(m_socket.value(), buffer, sizeof buffer, 0)) > 0)
            messages.append({buffer, size});
        return messages;
    }

private:
    FileDescriptor m_socket;
};

} // namespace

class ServiceNotifierTest final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void theManagerHearsHowTheProgramIs_data();
    void theManagerHearsHowTheProgramIs();
    void pingsAreAThirdOfTheWatchdogsTimeApart();
    void whoeverDidNotAskGetsNoPing_data();
    void whoeverDidNotAskGetsNoPing();

private:
    QTemporaryDir m_folder;
    QByteArray m_path = m_folder.filePath(u"notify"_s).toUtf8();
};

void ServiceNotifierTest::init()
{
    QFile::remove(QString::fromUtf8(m_path));
    qunsetenv("NOTIFY_SOCKET");
    qputenv("WATCHDOG_USEC", "3000000");
    qputenv("WATCHDOG_PID", QByteArray::number(::getpid()));
}

void ServiceNotifierTest::theManagerHearsHowTheProgramIs_data()
{
    QTest::addColumn<QByteArray>("name");
    QTest::newRow("a file") << m_path;
    QTest::newRow("a name in the kernel") << '@' + m_path;
}

void ServiceNotifierTest::theManagerHearsHowTheProgramIs()
{
    QFETCH(QByteArray, name);
    const Listener manager(name);
    ServiceNotifier notifier;
    notifier.ready();
    notifier.stopping();
    QCOMPARE(manager.heard(), (QByteArrayList{"READY=1", "STOPPING=1"}));
    for (const char *variable : {"NOTIFY_SOCKET", "WATCHDOG_USEC", "WATCHDOG_PID"})
        QVERIFY(!qEnvironmentVariableIsSet(variable));
}

void ServiceNotifierTest::pingsAreAThirdOfTheWatchdogsTimeApart()
{
    const Listener manager(m_path);
    ServiceNotifier notifier;
    notifier.ping();
    notifier.ping();
    QCOMPARE(manager.heard(), QByteArrayList{"WATCHDOG=1"});
    QTest::qWait(1010);
    notifier.ping();
    QCOMPARE(manager.heard(), QByteArrayList{"WATCHDOG=1"});
}

void ServiceNotifierTest::whoeverDidNotAskGetsNoPing_data()
{
    QTest::addColumn<QByteArray>("variable");
    QTest::addColumn<QByteArray>("value");
    QTest::newRow("another process's watchdog") << QByteArray("WATCHDOG_PID") << QByteArray("1");
    QTest::newRow("no watchdog") << QByteArray("WATCHDOG_USEC") << QByteArray();
    QTest::newRow("no number") << QByteArray("WATCHDOG_USEC") << QByteArray("soon");
    QTest::newRow("nobody listens") << QByteArray("NOTIFY_SOCKET") << QByteArray("/nowhere");
}

void ServiceNotifierTest::whoeverDidNotAskGetsNoPing()
{
    QFETCH(QByteArray, variable);
    QFETCH(QByteArray, value);
    const Listener manager(m_path);
    qputenv(variable, value);
    ServiceNotifier().ping();
    QCOMPARE(manager.heard(), QByteArrayList());
}

QTEST_GUILESS_MAIN(ServiceNotifierTest)

#include "service_notifier_test.moc"
