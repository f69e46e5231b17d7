// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "calendars/CalendarError.h"
#include "calendars/linux/EvolutionStore.h"
#include "tests/calendars/linux/StoreCases.h"
#include "tests/calendars/linux/StoreSeed.h"

#include <QCoreApplication>
#include <QCoroTask>
#include <QDBusConnection>
#include <QDBusConnectionInterface>
#include <QDir>
#include <QElapsedTimer>
#include <QProcess>
#include <QScopeGuard>
#include <QSignalSpy>
#include <QTest>

#include <csignal>

using namespace Qt::StringLiterals;
using namespace quorvane;
using namespace std::chrono_literals;

/// What becomes of the store when its service changes, hangs, dies. The service is this session's own.
class EvolutionStoreTest final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void cleanupTestCase() { store.reset(); }
    void readingIsNoChange();
    void aChangeByAnotherProgramIsNoticed();
    void aStoppedCalendarServiceAnswersInTime();
    void aKilledCalendarServiceIsStartedAgain();
    void aStoppedRegistryAnswersInTime();
    void anUnreadableCalendarCostsOnlyItself();
    void withoutTheServiceTheStoreIsUnavailable_data();
    void withoutTheServiceTheStoreIsUnavailable();

private:
    static constexpr BoundedWorker::Limit limit{3000};
    static const QStringList ids;

    static QList<qint64> processesBehind(const QString &namePrefix);
    /// One for all tests, as a program has one: the service counts a process's openings of a calendar as one.
    std::unique_ptr<EvolutionStore> store;
    Result<EventReading> read() const
    {
        return QCoro::waitFor(store->events(StoreCase::from, StoreCase::to, ids));
    }
    static void add(const QString &title)
    {
        QCOMPARE(
            QProcess::execute(QCoreApplication::applicationDirPath() + u"/add_event"_s, {u"first"_s, title}),
            0);
    }
};

const QStringList EvolutionStoreTest::ids{u"evolution:first"_s, u"evolution:second"_s};

void EvolutionStoreTest::initTestCase()
{
    const QByteArray calendar = StoreCase{
        "",
        "BEGIN:VEVENT\nUID:1\nDTSTART:20261123T090000Z\nDURATION:PT1H\nEND:VEVENT\n",
        {}}.calendar();
    StoreSeed::inEvolution(u"first"_s, calendar, StoreCase::ownAddress);
    StoreSeed::inEvolution(u"second"_s, StoreCase{"", {}, {}}.calendar(), StoreCase::ownAddress);
    store = std::make_unique<EvolutionStore>(limit);
}

QList<qint64> EvolutionStoreTest::processesBehind(const QString &namePrefix)
{
    QDBusConnectionInterface *bus = QDBusConnection::sessionBus().interface();
    QList<qint64> processes;
    const QStringList names = bus->registeredServiceNames();
    for (const QString &name : names) {
        if (name.startsWith(u"org.gnome.evolution.dataserver."_s + namePrefix))
            processes.append(bus->servicePid(name).value());
    }
    return processes;
}

void EvolutionStoreTest::readingIsNoChange()
{
    QVERIFY(read().has_value());
    QSignalSpy changes(store.get(), &CalendarStore::changed);
    QVERIFY(read().has_value());
    QVERIFY(!changes.wait(1000));
}

void EvolutionStoreTest::aChangeByAnotherProgramIsNoticed()
{
    const std::size_t before = read().value().events.size();
    QSignalSpy changes(store.get(), &CalendarStore::changed);
    add(u"new"_s);
    QVERIFY(changes.count() > 0 || changes.wait(5000));
    QCOMPARE(read().value().events.size(), before + 1);
}

void EvolutionStoreTest::aStoppedCalendarServiceAnswersInTime()
{
    const std::size_t before = read().value().events.size();
    const QList<qint64> processes = processesBehind(u"Calendar"_s) + processesBehind(u"Subprocess"_s);
    QVERIFY(!processes.isEmpty());
    const auto resume = qScopeGuard([&processes] {
        for (const qint64 process : processes)
            ::kill(static_cast<pid_t>(process), SIGCONT);
    });
    for (const qint64 process : processes)
        ::kill(static_cast<pid_t>(process), SIGSTOP);
    QElapsedTimer timer;
    timer.start();
    QCOMPARE(read().error(), make_error_code(CalendarError::timedOut));
    QVERIFY(timer.elapsed() < 2 * limit.count());
    QVERIFY(QCoro::waitFor(store->calendars()).has_value()); // known without the calendar service

    for (const qint64 process : processes)
        ::kill(static_cast<pid_t>(process), SIGCONT);
    QTRY_VERIFY(read().has_value());
    QCOMPARE(read().value().events.size(), before);
}

void EvolutionStoreTest::aKilledCalendarServiceIsStartedAgain()
{
    const std::size_t before = read().value().events.size();
    for (const qint64 process : processesBehind(u"Calendar"_s) + processesBehind(u"Subprocess"_s))
        ::kill(static_cast<pid_t>(process), SIGKILL);
    const auto reading = read();
    QVERIFY(reading.has_value());
    QCOMPARE(reading->unreadableCalendars, QStringList());
    QCOMPARE(reading->events.size(), before);
    add(u"another"_s);
    QTRY_VERIFY_WITH_TIMEOUT(read().value().events.size() == before + 1, 5000);
}

void EvolutionStoreTest::aStoppedRegistryAnswersInTime()
{
    const QList<qint64> processes = processesBehind(u"Sources"_s);
    QCOMPARE(processes.size(), 1);
    const auto resume =
        qScopeGuard([&processes] { ::kill(static_cast<pid_t>(processes.constFirst()), SIGCONT); });
    ::kill(static_cast<pid_t>(processes.constFirst()), SIGSTOP);
    EvolutionStore other(limit);
    QElapsedTimer timer;
    timer.start();
    QCOMPARE(QCoro::waitFor(other.calendars()).error(), make_error_code(CalendarError::timedOut));
    QVERIFY(timer.elapsed() < 2 * limit.count());
    ::kill(static_cast<pid_t>(processes.constFirst()), SIGCONT);
    QTRY_VERIFY(QCoro::waitFor(other.calendars()).has_value());
}

void EvolutionStoreTest::anUnreadableCalendarCostsOnlyItself()
{
    QVERIFY(QCoro::waitFor(store->calendars()).has_value());
    QSignalSpy changes(store.get(), &CalendarStore::changed);
    const QString broken = qEnvironmentVariable("XDG_CONFIG_HOME") + u"/evolution/sources/broken.source"_s;
    StoreSeed::write(broken, "[Data Source]\nDisplayName=Broken\nEnabled=true\nParent=work-account\n\n"
                             "[Calendar]\nBackendName=nobody-has-this\nSelected=true\n");
    QVERIFY(changes.wait(10'000));
    const QStringList all = ids + QStringList{u"evolution:broken"_s};
    const auto reading = QCoro::waitFor(store->events(StoreCase::from, StoreCase::to, all));
    QVERIFY(reading.has_value());
    QCOMPARE(reading->unreadableCalendars, QStringList{u"evolution:broken"_s});
    QVERIFY(!reading->events.empty());
}

void EvolutionStoreTest::withoutTheServiceTheStoreIsUnavailable_data()
{
    QTest::addColumn<QStringList>("command");
    const QString self = QCoreApplication::applicationFilePath();
    QTest::newRow("no bus") << QStringList{u"env"_s, u"DBUS_SESSION_BUS_ADDRESS=unix:path=/nowhere"_s, self,
                                           u"--only-connect"_s};
    QTest::newRow("not installed") << QStringList{u"dbus-run-session"_s,
                                                  u"--config-file"_s,
                                                  qEnvironmentVariable("HOME") + u"/bare-bus.conf"_s,
                                                  u"--"_s,
                                                  self,
                                                  u"--only-connect"_s};
}

void EvolutionStoreTest::withoutTheServiceTheStoreIsUnavailable()
{
    QFETCH(QStringList, command);
    StoreSeed::write(qEnvironmentVariable("HOME") + u"/bare-bus.conf"_s,
                     "<busconfig><type>session</type><listen>unix:tmpdir=/tmp</listen><auth>EXTERNAL</auth>"
                     "<policy context=\"default\"><allow send_destination=\"*\" eavesdrop=\"true\"/><allow "
                     "eavesdrop=\"true\"/><allow own=\"*\"/></policy></busconfig>");
    QElapsedTimer timer;
    timer.start();
    QProcess other;
    other.start(command.constFirst(), command.mid(1));
    QVERIFY(other.waitForFinished());
    QCOMPARE(other.readAllStandardOutput().trimmed(), QByteArray("unavailable"));
    QVERIFY(timer.elapsed() < 5000);
}

/// This program as another process: one process keeps one bus for all its life.
static int onlyConnect()
{
    EvolutionStore only;
    const auto calendars = QCoro::waitFor(only.calendars());
    const bool unavailable = !calendars && calendars.error() == make_error_code(CalendarError::unavailable);
    std::puts(unavailable ? "unavailable" : calendars ? "answered" : calendars.error().message().c_str());
    return 0;
}

int main(int count, char **arguments)
{
    QCoreApplication application(count, arguments);
    if (application.arguments().contains(u"--only-connect"_s))
        return onlyConnect();
    EvolutionStoreTest test;
    return QTest::qExec(&test, count, arguments);
}

#include "evolution_store_test.moc"
