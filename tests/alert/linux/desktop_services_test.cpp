// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

// What the alert asks of a desktop's services, on a private session bus with services that answer as desktops
// do.
#include "alert/linux/CanberraChime.h"
#include "alert/linux/DesktopDisplayWaker.h"
#include "alert/linux/DesktopMotionPreference.h"
#include "alert/linux/FocusGuard.h"
#include "alert/linux/ShellOverview.h"
#include "alert/linux/XdgLinkOpener.h"

#include <QDBusConnection>
#include <QDBusContext>
#include <QDBusMessage>
#include <QDBusMetaType>
#include <QElapsedTimer>
#include <QFile>
#include <QGuiApplication>
#include <QProcess>
#include <QScopeGuard>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTest>

#include <algorithm>
#include <csignal>

namespace quorvane {

namespace {

using PortalSettings = QMap<QString, QVariantMap>;

/// A service's end of the session bus.
QDBusConnection serviceBus()
{
    return QDBusConnection::connectToBus(QDBusConnection::SessionBus, QStringLiteral("services"));
}

} // namespace

/// An idle service (freedesktop.org Idle Inhibition) that takes its time.
class IdleService final : public QObject, protected QDBusContext
{
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.freedesktop.ScreenSaver")

public:
    QList<uint> held;
    int activities = 0;
    QList<QDBusMessage> waiting;

    void answerAll()
    {
        for (const QDBusMessage &question : std::exchange(waiting, {})) {
            held.append(++m_lastCookie);
            serviceBus().send(question.createReply(m_lastCookie));
        }
    }

public Q_SLOTS:
    uint Inhibit(const QString &, const QString &)
    {
        setDelayedReply(true);
        waiting.append(message());
        return 0;
    }
    void UnInhibit(uint cookie) { held.removeAll(cookie); }
    void SimulateUserActivity() { ++activities; }

private:
    uint m_lastCookie = 0;
};

/// The settings part of a desktop portal.
class PortalService final : public QObject
{
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.freedesktop.portal.Settings")

public:
    PortalSettings settings;

public Q_SLOTS:
    PortalSettings ReadAll(const QStringList &) { return settings; }

Q_SIGNALS:
    void SettingChanged(const QString &space, const QString &key, const QDBusVariant &value);
};

/// GNOME's shell with its overview of windows open.
class ShellService final : public QObject
{
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.gnome.Shell")
    Q_PROPERTY(bool OverviewActive MEMBER isOverviewActive)

public:
    bool isOverviewActive = true;
};

class DesktopServicesTest final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();

    void blankingIsHeldOffWhileAnAlertShows();
    void anAlertClosedBeforeTheServiceAnswersLeavesNothingHeld();
    void anAlertWithoutTheKeyboardClosesTheOverviewInFrontOfIt();
    void anOverviewThatComesUpIsNoticed();
    void reducedMotionIsReadFromThePortalAndFollowed_data();
    void reducedMotionIsReadFromThePortalAndFollowed();
    void aLinkCountsAsOpenedWhenTheDesktopTookIt_data();
    void aLinkCountsAsOpenedWhenTheDesktopTookIt();
    void theChimeIsHeardAndAHungSoundServerHoldsUpNothing();

private:
    IdleService m_idle;
    PortalService m_portal;
    ShellService m_shell;
};

void DesktopServicesTest::initTestCase()
{
    qDBusRegisterMetaType<PortalSettings>();
    QDBusConnection bus = serviceBus();
    const auto exported = QDBusConnection::ExportAllSlots | QDBusConnection::ExportAllSignals;
    QVERIFY(bus.registerObject(QStringLiteral("/org/freedesktop/ScreenSaver"), &m_idle, exported));
    QVERIFY(bus.registerObject(QStringLiteral("/org/freedesktop/portal/desktop"), &m_portal, exported));
    QVERIFY(bus.registerObject(QStringLiteral("/org/gnome/Shell"), &m_shell,
                               QDBusConnection::ExportAllProperties));
    QVERIFY(bus.registerService(QStringLiteral("org.gnome.Shell")));
    QVERIFY(bus.registerService(QStringLiteral("org.freedesktop.ScreenSaver")));
    QVERIFY(bus.registerService(QStringLiteral("org.freedesktop.portal.Desktop")));
}

void DesktopServicesTest::blankingIsHeldOffWhileAnAlertShows()
{
    DesktopDisplayWaker waker;
    const int activitiesBefore = m_idle.activities;
    waker.wake();
    QTRY_COMPARE(m_idle.waiting.size(), 1);
    m_idle.answerAll();
    QTRY_COMPARE(m_idle.activities, activitiesBefore + 1);
    QTest::qWait(20);
    QCOMPARE(m_idle.held.size(), 1);
    waker.release();
    QTRY_VERIFY(m_idle.held.isEmpty());
}

void DesktopServicesTest::anAlertClosedBeforeTheServiceAnswersLeavesNothingHeld()
{
    DesktopDisplayWaker waker;
    waker.wake();
    waker.release();
    waker.wake();
    QTRY_COMPARE(m_idle.waiting.size(), 2);
    m_idle.answerAll();
    QTRY_COMPARE(m_idle.held.size(), 1);
    waker.release();
    QTRY_VERIFY(m_idle.held.isEmpty());
}

void DesktopServicesTest::anAlertWithoutTheKeyboardClosesTheOverviewInFrontOfIt()
{
    int reclaimed = 0;
    FocusGuard guard([&reclaimed] { ++reclaimed; });
    QVERIFY(m_shell.isOverviewActive);
    guard.start();
    QTRY_VERIFY(!m_shell.isOverviewActive);
    QTRY_VERIFY(reclaimed > 0);
    guard.stop();
}

void DesktopServicesTest::anOverviewThatComesUpIsNoticed()
{
    const ShellOverview overview;
    const QSignalSpy entered(&overview, &ShellOverview::entered);
    for (const bool isActive : {false, true}) {
        QDBusMessage change = QDBusMessage::createSignal(QStringLiteral("/org/gnome/Shell"),
                                                         QStringLiteral("org.freedesktop.DBus.Properties"),
                                                         QStringLiteral("PropertiesChanged"));
        change << QStringLiteral("org.gnome.Shell")
               << QVariantMap{{QStringLiteral("OverviewActive"), isActive}} << QStringList();
        QVERIFY(QDBusConnection::sessionBus().send(change));
    }
    QTRY_COMPARE(entered.count(), 1);
}

void DesktopServicesTest::reducedMotionIsReadFromThePortalAndFollowed_data()
{
    QTest::addColumn<QString>("space");
    QTest::addColumn<QString>("key");
    QTest::addColumn<QVariant>("reduced");
    QTest::addColumn<QVariant>("full");
    QTest::newRow("GNOME") << QStringLiteral("org.gnome.desktop.interface")
                           << QStringLiteral("enable-animations") << QVariant(false) << QVariant(true);
    QTest::newRow("cross-desktop") << QStringLiteral("org.freedesktop.appearance")
                                   << QStringLiteral("reduced-motion") << QVariant(1U) << QVariant(0U);
    QTest::newRow("KDE") << QStringLiteral("org.kde.kdeglobals.KDE")
                         << QStringLiteral("AnimationDurationFactor") << QVariant(QStringLiteral("0"))
                         << QVariant(QStringLiteral("0.5"));
}

void DesktopServicesTest::reducedMotionIsReadFromThePortalAndFollowed()
{
    QFETCH(QString, space);
    QFETCH(QString, key);
    QFETCH(QVariant, reduced);
    QFETCH(QVariant, full);
    m_portal.settings = {{space, {{key, reduced}}}};
    DesktopMotionPreference preference;
    QSignalSpy changed(&preference, &MotionPreference::changed);
    QVERIFY(!preference.reduceMotion());
    QTRY_VERIFY(preference.reduceMotion());
    Q_EMIT m_portal.SettingChanged(space, key, QDBusVariant(full));
    QTRY_VERIFY(!preference.reduceMotion());
    QCOMPARE(changed.size(), 2);
}

void DesktopServicesTest::aLinkCountsAsOpenedWhenTheDesktopTookIt_data()
{
    QTest::addColumn<QByteArray>("program");
    QTest::addColumn<bool>("opened");
    QTest::addColumn<QByteArray>("manager");
    const QByteArray notAsked;
    QTest::newRow("handed over") << QByteArray("exit 0") << true << notAsked;
    QTest::newRow("no program for it") << QByteArray("exit 3") << false << notAsked;
    QTest::newRow("stays with the browser") << QByteArray("exec sleep 30") << true << notAsked;
    QTest::newRow("killed") << QByteArray("kill -9 $$") << false << notAsked;
    QTest::newRow("not installed") << QByteArray() << false << notAsked;
    QTest::newRow("the service manager fails") << QByteArray("exit 0") << true << QByteArray("exit 1");
    QTest::newRow("the service manager hangs")
        << QByteArray("exit 3") << false << QByteArray("exec sleep 30");
    // What systemd-run says, and the last of its arguments, which the manager reads in its own way.
    const QByteArray running("echo 'Running as unit: x' >&2\nshift $(($# - 1))\n");
    const QByteArray opening("xdg-open \"$(printf %s \"$1\" | sed 's/\\$\\$/$/g')\"");
    QTest::newRow("the unit hands over") << QByteArray("exit 0") << true << running + opening;
    QTest::newRow("the unit has no display") << QByteArray("exit 0") << true << running + "exit 3";
    QTest::newRow("nor a program for it") << QByteArray("exit 3") << false << running + "exit 3";
    QTest::newRow("the unit's browser is closed")
        << QByteArray("sleep 4.5; exit 1") << true << running + opening;
}

void DesktopServicesTest::aLinkCountsAsOpenedWhenTheDesktopTookIt()
{
    QFETCH(QByteArray, program);
    QFETCH(bool, opened);
    QFETCH(QByteArray, manager);
    const QTemporaryDir folder;
    const QString seen = folder.filePath(QStringLiteral("seen"));
    const auto install = [&folder](const QString &name, const QByteArray &script) {
        QFile file(folder.filePath(name));
        QVERIFY(file.open(QIODevice::WriteOnly));
        file.write("#!/bin/sh\n" + script + '\n');
        file.setPermissions(QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    };
    if (!program.isEmpty())
        install(QStringLiteral("xdg-open"), "printf %s \"$*\" >> '" + seen.toUtf8() + "'\n" + program);
    if (!manager.isEmpty())
        install(QStringLiteral("systemd-run"), manager);
    const QByteArray path = qgetenv("PATH");
    qputenv("PATH", program.isEmpty() ? folder.path().toUtf8() : folder.path().toUtf8() + ':' + path);
    using Start = XdgLinkOpener::Start;
    XdgLinkOpener opener(QProcessEnvironment::systemEnvironment(),
                         manager.isEmpty() ? Start::direct : Start::byServiceManager);
    QList<bool> answers;
    opener.open(QUrl(QStringLiteral("https://meet.example.org/a?b=$(id)&c=ü")),
                [&answers](bool answer) { answers.append(answer); });
    const auto restore = qScopeGuard([&path] { qputenv("PATH", path); });
    QTRY_COMPARE_WITH_TIMEOUT(answers, QList<bool>{opened}, 9000);
    QTest::qWait(program.startsWith("sleep") ? 900 : 0); // for what must not happen once more
    if (program.isEmpty())
        return;
    QFile file(seen);
    QVERIFY(file.open(QIODevice::ReadOnly));
    QCOMPARE(file.readAll(), QByteArray("https://meet.example.org/a?b=$(id)&c=%C3%BC"));
}

void DesktopServicesTest::theChimeIsHeardAndAHungSoundServerHoldsUpNothing()
{
    QProcess server;
    server.start(QStringLiteral("pulseaudio"),
                 {QStringLiteral("-n"), QStringLiteral("--exit-idle-time=-1"), QStringLiteral("-L"),
                  QStringLiteral("module-native-protocol-unix"), QStringLiteral("-L"),
                  QStringLiteral("module-null-sink")});
    QVERIFY2(server.waitForStarted(), "pulseaudio is not installed");
    QProcess recorder;
    QTRY_VERIFY(QFile::exists(qEnvironmentVariable("XDG_RUNTIME_DIR") + QStringLiteral("/pulse/native")));
    recorder.start(QStringLiteral("parec"), {QStringLiteral("-d"), QStringLiteral("null.monitor"),
                                             QStringLiteral("--latency-msec=50")});
    QTRY_VERIFY(recorder.bytesAvailable() > 0);

    CanberraChime chime;
    chime.play(QStringLiteral("no such sound"));
    chime.play(QStringLiteral("Glass"));
    QByteArray heard;
    const auto isLoud = [&heard, &recorder] {
        heard += recorder.readAll();
        return std::ranges::any_of(heard, [](char byte) { return byte != 0; });
    };
    QVERIFY(QTest::qWaitFor(isLoud, 5000));

    QVERIFY(::kill(static_cast<pid_t>(server.processId()), SIGSTOP) == 0);
    QElapsedTimer timer;
    timer.start();
    for (int i = 0; i < 5; ++i)
        chime.play(QStringLiteral("Glass"));
    QVERIFY(timer.elapsed() < 1000);
    recorder.kill();
    recorder.waitForFinished();
    server.kill();
    server.waitForFinished();
}

} // namespace quorvane

QTEST_MAIN(quorvane::DesktopServicesTest)

#include "desktop_services_test.moc"
