// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "tests/network/linux/Keyring.h"

#include <QDBusConnectionInterface>
#include <QDBusReply>
#include <QDir>
#include <QFile>
#include <QTest>

#include <csignal>

using namespace Qt::StringLiterals;

namespace {

// Without folders of services that the bus could start.
constexpr auto busConfiguration = R"(<busconfig><type>session</type><listen>unix:path=%1</listen>
<policy context="default"><allow send_destination="*"/><allow receive_sender="*"/><allow own="*"/></policy></busconfig>)";

} // namespace

Keyring::Keyring()
    : m_environment(QProcessEnvironment::systemEnvironment())
{
    const QString socket = m_folder.filePath(u"bus"_s);
    QFile configuration(m_folder.filePath(u"bus.conf"_s));
    if (!configuration.open(QIODevice::WriteOnly))
        qFatal("no folder for the bus");
    configuration.write(QString::fromLatin1(busConfiguration).arg(socket).toUtf8());
    configuration.close();
    m_busDaemon.start(u"dbus-daemon"_s,
                      {u"--nofork"_s, u"--nopidfile"_s, u"--config-file="_s + configuration.fileName()});
    if (!QTest::qWaitFor([&] { return QFile::exists(socket); }, 10'000))
        qFatal("the bus does not start");
    const QString address = u"unix:path="_s + socket;
    m_environment.insert(u"DBUS_SESSION_BUS_ADDRESS"_s, address);
    for (const QString &name :
         {u"HOME"_s, u"XDG_DATA_HOME"_s, u"XDG_CONFIG_HOME"_s, u"XDG_CACHE_HOME"_s, u"XDG_RUNTIME_DIR"_s}) {
        m_environment.insert(name, m_folder.filePath(name));
        QDir().mkdir(m_folder.filePath(name), QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    }
    m_busName = m_folder.path();
    QDBusConnection::connectToBus(address, m_busName);
}

Keyring::~Keyring()
{
    kill();
    m_prompter.kill();
    m_prompter.waitForFinished();
    QDBusConnection::disconnectFromBus(m_busName);
    stopBus();
}

void Keyring::stopBus()
{
    m_busDaemon.kill();
    m_busDaemon.waitForFinished();
}

void Keyring::startUnlocked()
{
    start({u"--unlock"_s}, password);
}

void Keyring::startLocked()
{
    start({u"--start"_s}, {});
}

void Keyring::startPrompter()
{
    m_prompter.setProcessEnvironment(m_environment);
    m_prompter.start(u"/usr/libexec/gcr-prompter"_s, {});
    waitFor(u"org.gnome.keyring.SystemPrompter"_s);
}

void Keyring::sendSignal(int number) const
{
    ::kill(static_cast<pid_t>(m_service.processId()), number);
}

void Keyring::kill()
{
    m_service.kill();
    m_service.waitForFinished();
}

bool Keyring::isRunning() const
{
    return m_service.state() == QProcess::Running;
}

QByteArray Keyring::tool(const QStringList &arguments, const QByteArray &input) const
{
    QProcess tool;
    tool.setProcessEnvironment(m_environment);
    tool.start(u"secret-tool"_s, arguments);
    tool.write(input);
    tool.closeWriteChannel();
    tool.waitForFinished();
    return tool.readAllStandardOutput();
}

qsizetype Keyring::count(const QString &account) const
{
    return tool({u"search"_s, u"--all"_s, u"service"_s, u"me.tarnel.Quorvane"_s, u"account"_s, account})
        .count("secret = ");
}

void Keyring::start(const QStringList &arguments, const QByteArray &input)
{
    m_service.setProcessEnvironment(m_environment);
    m_service.start(u"gnome-keyring-daemon"_s,
                    QStringList{u"--foreground"_s, u"--components=secrets"_s} + arguments);
    m_service.write(input);
    m_service.closeWriteChannel();
    waitFor(u"org.freedesktop.secrets"_s);
}

void Keyring::waitFor(const QString &name) const
{
    const auto isThere = [this, &name] { return bus().interface()->isServiceRegistered(name).value(); };
    if (!QTest::qWaitFor(isThere, 30'000))
        qFatal("%s does not start", qPrintable(name));
}
