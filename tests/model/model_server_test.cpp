// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "tests/support/PhoneFixture.h"

#include <QTest>

#include <memory>

using namespace Qt::StringLiterals;
using namespace quorvane;

/// The user's own server.
class ModelServerTest final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { f = std::make_unique<PhoneFixture>(); }
    void cleanup() { f.reset(); }
    void anAnswerTheServerMissedIsToldLater();
    void theServerIsInChargeUntilItFailedThreeTimes();
    void aServerThatCannotDeliverIsNotLeftAlone_data();
    void aServerThatCannotDeliverIsNotLeftAlone();
    void theScheduleIsSharedOnlyWhenAskedFor();
    void whatTheServerKnowsCountsHere();
    void copiesStandInForASourceThatIsMissed();
    void anAddressWithoutATokenIsNoServer();
    void aSourceThatNeverAnswersKeepsNothingFromTheServer();
    void whateverItsIdentifierAMessageIsSilenced();
    void ofThousandsOfMeetingsTheNextCount();

private:
    static constexpr double noon = ModelFixture::noon;
    static QJsonObject onServer(const QString &id, const QString &source);

    std::unique_ptr<PhoneFixture> f;
};

void ModelServerTest::anAnswerTheServerMissedIsToldLater()
{
    f->useServer();
    f->say(f->health());
    f->store->add(u"a"_s, noon + 60);
    f->start();
    QTRY_VERIFY(!f->model->isRefreshing());
    f->server.tell({{"path"_L1, u"/ack"_s}, {"status"_L1, 503}});
    const QString id = Meeting::identity(u"a"_s, noon + 60);
    launch(f->model->acknowledge(id));
    QTRY_COMPARE(f->model->notice(),
                 u"Acknowledged on this Mac. Phone acknowledgment could not sync; retry from the phone."_s);
    QCOMPARE(f->preferences.pendingAcks(), QStringList{id});
    f->restart();
    QTRY_VERIFY(!f->model->isRefreshing());
    QTRY_COMPARE(f->paths(f->server).count(u"/ack"_s), 2);
    QCOMPARE(f->preferences.pendingAcks(), QStringList{id});
    QTest::qWait(100); // for the answer to be taken
    f->server.tell({{"path"_L1, u"/ack"_s}, {"body"_L1, uR"({"ok":true})"_s}});
    f->refresh();
    QTRY_COMPARE(f->preferences.pendingAcks(), QStringList());
    QCOMPARE(f->paths(f->server).count(u"/ack"_s), 3);
    f->refresh();
    QTest::qWait(100);
    QCOMPARE(f->paths(f->server).count(u"/ack"_s), 3);
}

void ModelServerTest::theServerIsInChargeUntilItFailedThreeTimes()
{
    f->useServer();
    f->say(f->health());
    f->store->add(u"a"_s, noon + 100);
    f->start();
    QTRY_VERIFY(!f->model->isRefreshing());
    QCOMPARE(f->model->cloudStatus(), u"Connected"_s); // it does not know the meeting
    f->server.tell({{"path"_L1, u"/state"_s}, {"status"_L1, 500}});
    for (int failures = 1; failures <= 3; ++failures) {
        f->tickAt(noon + 5 * failures);
        QTest::qWait(30);
        QCOMPARE(f->paths(f->phone), QStringList());
        f->refresh();
        QCOMPARE(
            f->model->cloudStatus(),
            u"Server unreachable. Screen alerts remain active; phone backup starts after repeated failures."_s);
        QVERIFY(!f->model->scheduleSynced());
    }
    f->tickAt(noon + 25);
    QTRY_COMPARE(f->paths(f->phone), QStringList{u"/1/messages.json"_s});
    QCOMPARE(f->model->localMeetings().size(), std::size_t(1));
    f->say(f->health());
    f->refresh();
    QVERIFY(f->model->localMeetings().empty());
    QCOMPARE(f->model->status(), u"1 meetings scheduled for alerts"_s);
}

void ModelServerTest::aServerThatCannotDeliverIsNotLeftAlone_data()
{
    QTest::addColumn<QJsonObject>("change");
    QTest::addColumn<QString>("text");
    QTest::addColumn<bool>("delivers");
    const auto row = [](const char *name, const QJsonObject &change, const QString &text, bool delivers) {
        QTest::newRow(name) << change << text << delivers;
    };
    row("in order", {},
        u"Connected. Phone alerts continue from the synced Fantastical schedule while this Mac sleeps."_s,
        true);
    row("no source", {{"sources"_L1, QJsonObject()}}, u"No calendars have reached the scheduler yet"_s, true);
    row("a broken source", {{"sources"_L1, QJsonObject{{"a"_L1, u"ok"_s}, {"b"_L1, u"stale"_s}}}},
        u"Calendar sync needs attention"_s, true);
    row("no token", {{"configured"_L1, false}}, u"Pushover application token needed on server"_s, false);
    row("no scheduler", {{"scheduler"_L1, false}, {"configured"_L1, false}},
        u"Scheduler is not running. Local phone backup enabled."_s, false);
    row("no token, and it takes no schedule", {{"configured"_L1, false}, {"refuses"_L1, true}},
        u"Pushover application token needed on server"_s, false);
    row("no delivery", {{"delivery"_L1, u"failing"_s}, {"scheduler"_L1, false}},
        u"Phone delivery needs attention. Local phone backup enabled."_s, false);
}

void ModelServerTest::aServerThatCannotDeliverIsNotLeftAlone()
{
    QFETCH(QJsonObject, change);
    QFETCH(QString, text);
    QFETCH(bool, delivers);
    f->useServer();
    f->addSetting(u"uploadMacSnapshot=true"_s);
    QJsonObject body = f->health();
    for (auto entry = change.begin(); entry != change.end(); ++entry)
        body.insert(entry.key(), entry.value());
    if (body.take("refuses"_L1).toBool())
        f->server.tell({{"path"_L1, u"/snapshot"_s}, {"status"_L1, 500}});
    f->say(body);
    f->store->add(u"a"_s, noon + 100);
    f->start();
    QTRY_VERIFY(!f->model->isRefreshing());
    QCOMPARE(f->model->cloudStatus(), text);
    QCOMPARE(f->model->scheduleSynced(), delivers);
    f->tickAt(noon + 1);
    if (delivers)
        QTest::qWait(50);
    QTRY_COMPARE(f->paths(f->phone).size(), delivers ? 0 : 1);
}

void ModelServerTest::theScheduleIsSharedOnlyWhenAskedFor()
{
    f->useServer();
    f->say(f->health());
    f->store->add(u"video"_s, noon + 100);
    f->store->add(u"plain"_s, noon + 200, QString());
    f->start();
    f->refresh();
    QVERIFY(!f->paths(f->server).contains(u"/snapshot"_s));
    f->addSetting(u"uploadMacSnapshot=true"_s);
    f->refresh();
    const QJsonDocument uploaded = QJsonDocument::fromJson(f->lastBody(f->server, u"/snapshot"_s).toUtf8());
    QCOMPARE(uploaded["events"_L1].toArray(), QJsonArray{f->model->meetings().front().toJson()});
    QVERIFY(f->model->scheduleSynced());
    f->server.tell({{"path"_L1, u"/snapshot"_s}, {"body"_L1, uR"({"ok":false})"_s}});
    f->refresh();
    QVERIFY(!f->model->scheduleSynced());
}

QJsonObject ModelServerTest::onServer(const QString &id, const QString &source)
{
    return Meeting{.id = id,
                   .title = id,
                   .start = noon + 40,
                   .end = noon + 1000,
                   .calendar = u"There"_s,
                   .joinURL = u"https://zoom.us/j/7"_s,
                   .source = source}
        .toJson();
}

void ModelServerTest::whatTheServerKnowsCountsHere()
{
    f->useServer();
    const QString known = Meeting::identity(u"a"_s, noon + 30);
    f->store->add(u"a"_s, noon + 30);
    f->say(f->health(),
           {onServer(QString(64, u'b'), u"direct"_s), onServer(QString(64, u'c'), Meeting::systemSource),
            onServer(QString(64, u'd'), u"direct"_s)},
           {known, QString(64, u'd'), u"never heard of"_s});
    f->start();
    QCOMPARE(f->shown(), known);
    QTRY_VERIFY(!f->model->isRefreshing());
    // Answered on the phone; the server's own meeting comes next, and what it kept of this machine's
    // calendars gives way to what they say now.
    QCOMPARE(f->shown(), QString(64, u'b'));
    QCOMPARE(f->model->meetings().size(), std::size_t(3));
    QVERIFY(f->model->records().value(known).acknowledged);
    QVERIFY(f->model->records().value(QString(64, u'd')).acknowledged);
    QVERIFY(!f->model->records().contains(u"never heard of"_s));
}

void ModelServerTest::copiesStandInForASourceThatIsMissed()
{
    f->useServer();
    f->addSetting(u"fantasticalFolderBookmark="_s + f->dir.path());
    f->installReader(); // and it fails
    const QString copy(64, u'c');
    f->say(f->health(), {onServer(copy, Meeting::systemSource)});
    f->start();
    QTRY_COMPARE(f->shown(), copy);
    f->fantastical->answer(FantasticalSnapshot{});
    f->refresh();
    QCOMPARE(f->shown(), QString());
    f->fantastical->answer(ProcessOutcome{.exitStatus = 1});
    f->refresh();
    QCOMPARE(f->shown(), QString());
}

void ModelServerTest::anAddressWithoutATokenIsNoServer()
{
    f->useServer();
    f->keyring.values.insert(Secrets::serverToken, QByteArray(31, 's'));
    f->store->add(u"a"_s, noon + 100);
    f->start();
    QTRY_VERIFY(!f->model->isRefreshing());
    QVERIFY(!f->model->serverConfigured());
    QCOMPARE(f->model->cloudStatus(), u"Local only. Phone delivery stops while this Mac sleeps."_s);
    f->tickAt(noon + 1);
    const QString id = Meeting::identity(u"a"_s, noon + 100);
    QTRY_VERIFY(f->model->records().value(id).phoneSent);
    launch(f->model->acknowledge(id));
    QTRY_COMPARE(f->paths(f->phone).size(), 2);
    QCOMPARE(f->paths(f->server), QStringList());
    QCOMPARE(f->preferences.pendingAcks(), QStringList());
}

void ModelServerTest::aSourceThatNeverAnswersKeepsNothingFromTheServer()
{
    f->useServer();
    f->addSetting(u"uploadMacSnapshot=true"_s);
    f->store->failure = std::make_error_code(std::errc::io_error);
    const QJsonObject added = onServer(QString(64, u'a'), Meeting::manualSource);
    const QJsonObject copy = onServer(QString(64, u'c'), Meeting::systemSource);
    f->keyring.values.insert(Secrets::manualMeetings, QJsonDocument(QJsonArray{added}).toJson());
    f->say(f->health(), {copy});
    f->start();
    QTRY_VERIFY(!f->model->isRefreshing());
    const auto uploaded = [this] {
        return QJsonDocument::fromJson(f->lastBody(f->server, u"/snapshot"_s).toUtf8())["events"_L1]
            .toArray();
    };
    QCOMPARE(uploaded(), (QJsonArray{added, copy}));
    QVERIFY(f->model->scheduleSynced());
    f->installReader(); // and the second source has its say
    f->fantastical->answer(FantasticalSnapshot{});
    f->refresh();
    QVERIFY(f->model->fantasticalConnected());
    QCOMPARE(uploaded(), (QJsonArray{added, copy}));
    // The same the other way round: what the keyring does not tell is not taken off the server.
    f->keyring.values.insert(Secrets::manualMeetings, "\xff");
    f->store->failure = {};
    f->say(f->health(), {added, copy});
    f->restart();
    QTRY_VERIFY(!f->model->isRefreshing());
    QCOMPARE(uploaded(), QJsonArray{added});
}

void ModelServerTest::whateverItsIdentifierAMessageIsSilenced()
{
    f->useServer();
    f->say(PhoneFixture::health(), {onServer(u"room 5"_s, u"direct"_s)});
    f->start();
    QTRY_VERIFY(!f->model->isRefreshing());
    QJsonObject broken = f->health();
    broken.insert("delivery"_L1, u"failing"_s);
    f->say(broken, {onServer(u"room 5"_s, u"direct"_s)});
    f->refresh();
    f->tickAt(noon + 10);
    QTRY_VERIFY(f->model->records().value(u"room 5"_s).receipt);
    launch(f->model->acknowledge(u"room 5"_s));
    QTRY_VERIFY(f->paths(f->phone).contains(u"/1/receipts/%1/cancel.json"_s.arg(QString(30, u'R'))));
}

void ModelServerTest::ofThousandsOfMeetingsTheNextCount()
{
    f->useServer();
    QJsonArray events;
    for (int number = 5000; number > 0; --number) {
        QJsonObject event = onServer(QString::number(number), u"direct"_s);
        event.insert("start"_L1, noon + number);
        event.insert("end"_L1, noon + 9000);
        events.append(event);
    }
    f->say(f->health(), events);
    f->start();
    QTRY_VERIFY_WITH_TIMEOUT(!f->model->isRefreshing(), 30'000);
    QCOMPARE(f->model->meetings().size(), std::size_t(1000));
    QCOMPARE(f->shown(), u"1"_s);
    QCOMPARE(f->model->meetings().back().id, u"1000"_s);
}

QTEST_MAIN(ModelServerTest)
#include "model_server_test.moc"
