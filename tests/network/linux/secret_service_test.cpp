// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "network/SecretError.h"
#include "network/Secrets.h"
#include "network/linux/SecretService.h"
#include "tests/network/linux/Keyring.h"

#include <QTest>
#include <QTimer>

#include <csignal>

using namespace Qt::StringLiterals;
using namespace quorvane;
using namespace std::chrono_literals;

namespace {

constexpr auto account = Secrets::pushoverUser;

/// Arguments of secret-tool about the account.
QStringList about(const QStringList &command, const QStringList &moreAttributes = {})
{
    return command + QStringList{u"service"_s, u"me.tarnel.Quorvane"_s, u"account"_s, account} +
           moreAttributes;
}

} // namespace

class SecretServiceTest final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void aTextComesBackAsItWasStored_data();
    void aTextComesBackAsItWasStored();
    void whatIsNoTextIsAbsent();
    void otherToolsShareTheItem();
    void ofSeveralValuesTheLatestCountsAndAWriteLeavesOne();
    void aLockedKeyringIsAFailureAndNoAbsence();
    void aServiceThatComesLateOrRestartsIsUsed();
    void aServiceThatIsKilledInBetweenCostsOnlyThatCall();
    void aStoppedServiceFailsInTimeAndHoldsUpNothing();
    void aLostBusIsAFailure();

private:
    /// What `read` fails with; no error when it does not fail.
    static std::error_code readError(SecretService &service)
    {
        const auto value = QCoro::waitFor(service.read(account));
        return value ? std::error_code() : value.error();
    }
    static bool set(const Secrets &secrets, const QString &value)
    {
        const Result<void> result = QCoro::waitFor(secrets.set(value, account));
        return result || result.error() != make_error_code(SecretError::writeFailed);
    }
    static std::optional<QString> get(const Secrets &secrets) { return QCoro::waitFor(secrets.get(account)); }
};

void SecretServiceTest::aTextComesBackAsItWasStored_data()
{
    QTest::addColumn<QString>("text");
    QTest::newRow("a key") << u"azGDORePK8gMaC0QOYAMyEEuzJnyUi"_s;
    QTest::newRow("cleared") << u""_s;
    QTest::newRow("any language, a mark, a zero") << u"\ufeffשלום 🗝 x\0y\r\n"_s;
    QTest::newRow("the longest") << QString(Secrets::longest, u'x');
}

void SecretServiceTest::aTextComesBackAsItWasStored()
{
    QFETCH(QString, text);
    Keyring keyring;
    keyring.startUnlocked();
    SecretService service(keyring.bus());
    const Secrets secrets(service);
    QCOMPARE(get(secrets), std::nullopt);
    QVERIFY(!readError(service));
    QVERIFY(set(secrets, u"an earlier value"_s));
    QVERIFY(set(secrets, text));
    QCOMPARE(get(secrets), text);
    QCOMPARE(keyring.count(account), 1);
    QCOMPARE(QCoro::waitFor(secrets.get(Secrets::serverToken)), std::nullopt);
    keyring.kill();
    keyring.startUnlocked();
    QCOMPARE(get(secrets), text);
}

void SecretServiceTest::whatIsNoTextIsAbsent()
{
    Keyring keyring;
    keyring.startUnlocked();
    SecretService service(keyring.bus());
    const Secrets secrets(service);
    for (const QByteArray &bytes : {QByteArray("\xff\x00\xfe", 3), QByteArray(Secrets::longest + 1, 'x')}) {
        QVERIFY(QCoro::waitFor(service.write(account, bytes)));
        QCOMPARE(QCoro::waitFor(service.read(account)), bytes);
        QCOMPARE(get(secrets), std::nullopt);
    }
    QVERIFY(!set(secrets, QString(Secrets::longest + 1, u'x')));
}

void SecretServiceTest::otherToolsShareTheItem()
{
    Keyring keyring;
    keyring.startUnlocked();
    SecretService service(keyring.bus());
    const Secrets secrets(service);
    QVERIFY(set(secrets, u"schlüssel"_s));
    QCOMPARE(keyring.tool(about({u"lookup"_s})), QByteArray("schlüssel"));
    QVERIFY(keyring.tool(about({u"search"_s})).contains("label = Quorvane: pushover-user\n"));
    keyring.tool(about({u"store"_s, u"--label=mine"_s}), "theirs");
    QCOMPARE(get(secrets), u"theirs"_s);
    QVERIFY(set(secrets, u"ours"_s));
    QVERIFY(keyring.tool(about({u"search"_s})).contains("label = mine\nsecret = ours\n"));
    QCOMPARE(keyring.count(account), 1);
}

void SecretServiceTest::ofSeveralValuesTheLatestCountsAndAWriteLeavesOne()
{
    Keyring keyring;
    keyring.startUnlocked();
    SecretService service(keyring.bus());
    const Secrets secrets(service);
    for (const QString &value : {u"1"_s, u"2"_s, u"3"_s}) {
        keyring.tool(about({u"store"_s, u"--label=x"_s}, {u"version"_s, value}), value.toUtf8());
        QTest::qWait(1100); // the service keeps seconds
    }
    keyring.tool(about({u"store"_s, u"--label=x"_s}, {u"version"_s, u"2"_s}), "latest");
    QCOMPARE(keyring.count(account), 3);
    QCOMPARE(get(secrets), u"latest"_s);
    QVERIFY(set(secrets, u"only"_s));
    QCOMPARE(keyring.count(account), 1);
    QCOMPARE(get(secrets), u"only"_s);
}

void SecretServiceTest::aLockedKeyringIsAFailureAndNoAbsence()
{
    Keyring keyring;
    keyring.startUnlocked();
    SecretService service(keyring.bus());
    const Secrets secrets(service);
    QVERIFY(set(secrets, u"value"_s));
    keyring.kill();
    keyring.startLocked();
    QCOMPARE(readError(service), std::make_error_code(std::errc::permission_denied));
    QCOMPARE(get(secrets), std::nullopt);
    QVERIFY(!set(secrets, u"other"_s)); // nobody here asks for a password
    const auto other = QCoro::waitFor(secrets.set(u"new"_s, Secrets::serverToken));
    QVERIFY(!other);
    QVERIFY(keyring.isRunning());
    keyring.kill();
    keyring.startUnlocked();
    QCOMPARE(get(secrets), u"value"_s);
    QCOMPARE(QCoro::waitFor(secrets.get(Secrets::serverToken)), std::nullopt);
}

void SecretServiceTest::aServiceThatComesLateOrRestartsIsUsed()
{
    Keyring keyring;
    SecretService service(keyring.bus());
    const Secrets secrets(service);
    QCOMPARE(readError(service), std::make_error_code(std::errc::not_connected));
    QCOMPARE(get(secrets), std::nullopt);
    QVERIFY(!set(secrets, u"lost"_s));
    keyring.startUnlocked();
    QVERIFY(set(secrets, u"kept"_s));
    keyring.kill();
    QCOMPARE(get(secrets), std::nullopt);
    keyring.startUnlocked();
    QCOMPARE(get(secrets), u"kept"_s);
}

void SecretServiceTest::aServiceThatIsKilledInBetweenCostsOnlyThatCall()
{
    Keyring keyring;
    SecretService service(keyring.bus());
    const Secrets secrets(service);
    keyring.startUnlocked();
    QVERIFY(set(secrets, u"value"_s));
    // Whatever it was just doing.
    for (int delay = 0; delay < 6; ++delay) {
        QTimer::singleShot(delay, this, [&keyring] { keyring.kill(); });
        set(secrets, u"value"_s);
        QTRY_VERIFY(!keyring.isRunning());
        keyring.startUnlocked();
        QCOMPARE(get(secrets), u"value"_s);
        QCOMPARE(keyring.count(account), 1);
    }
}

void SecretServiceTest::aStoppedServiceFailsInTimeAndHoldsUpNothing()
{
    Keyring keyring;
    keyring.startUnlocked();
    SecretService service(keyring.bus());
    const Secrets secrets(service);
    QVERIFY(set(secrets, u"value"_s));
    keyring.sendSignal(SIGSTOP);
    QElapsedTimer timer;
    timer.start();
    qint64 longestPause = 0;
    qint64 lastTick = 0;
    QTimer ticks;
    connect(&ticks, &QTimer::timeout, this, [&] {
        longestPause = std::max(longestPause, timer.elapsed() - lastTick);
        lastTick = timer.elapsed();
    });
    ticks.start(10ms);
    QCOMPARE(readError(service), std::make_error_code(std::errc::timed_out));
    QVERIFY(!set(secrets, u"other"_s));
    QVERIFY2(timer.elapsed() < 12'000, qPrintable(QString::number(timer.elapsed())));
    QVERIFY2(longestPause < 2'000, qPrintable(QString::number(longestPause)));
    keyring.sendSignal(SIGCONT);
    QTRY_VERIFY(get(secrets).has_value());
}

void SecretServiceTest::aLostBusIsAFailure()
{
    Keyring keyring;
    keyring.startUnlocked();
    SecretService service(keyring.bus());
    const Secrets secrets(service);
    QVERIFY(set(secrets, u"value"_s));
    keyring.stopBus();
    QVERIFY(readError(service));
    QVERIFY(!set(secrets, u"other"_s));
    SecretService unconnected(QDBusConnection(u"no such bus"_s));
    QVERIFY(readError(unconnected));
    QVERIFY(!set(Secrets(unconnected), u"other"_s));
}

QTEST_GUILESS_MAIN(SecretServiceTest)
#include "secret_service_test.moc"
