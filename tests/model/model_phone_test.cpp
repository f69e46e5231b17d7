// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "tests/support/HttpsPeer.h"
#include "tests/support/ModelFixture.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QSet>
#include <QTest>
#include <QUrlQuery>

#include <memory>

using namespace Qt::StringLiterals;
using namespace quorvane;

/// The model with real HTTPS servers for the phone service and the user's own server.
class ModelPhoneTest final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void withoutAServerOneMessageRings();
    void aFailedMessageIsRepeatedAfterThirtySeconds();
    void aKeyringThatComesLaterIsAskedAgain();
    void anAnswerOnThePhoneClosesTheAlert();
    void anAnswerHereSilencesThePhoneAndTellsTheServer();
    void anAnswerWhileTheMessageIsOnItsWaySilencesIt();
    void anAnswerTheServerMissedIsToldLater();
    void theServerIsInChargeUntilItFailedThreeTimes();
    void aServerThatCannotDeliverIsNotLeftAlone_data();
    void aServerThatCannotDeliverIsNotLeftAlone();
    void theScheduleIsSharedOnlyWhenAskedFor();
    void whatTheServerKnowsCountsHere();
    void copiesStandInForASourceThatIsMissed();
    void anAddressWithoutATokenIsNoServer();
    void aHangingKeyringDelaysNothing();

private:
    static constexpr double noon = ModelFixture::noon;
    using Body = QJsonObject;
    static Body health();
    static QJsonObject onServer(const QString &id, const QString &source);
    void useServer();
    void say(const Body &health, const QJsonArray &events = {}, const QJsonArray &acknowledged = {});
    void refresh();
    QStringList paths(HttpsPeer &peer) const;
    QString lastBody(HttpsPeer &peer, const QString &path) const;

    std::unique_ptr<ModelFixture> f;
    std::unique_ptr<HttpsPeer> phone;
    std::unique_ptr<HttpsPeer> server;
};

void ModelPhoneTest::init()
{
    f = std::make_unique<ModelFixture>();
    phone = std::make_unique<HttpsPeer>(u"pinned"_s);
    server = std::make_unique<HttpsPeer>(u"pinned"_s);
    f->phoneService = phone->url();
    f->pinnedCertificate = HttpsPeer::der(u"pinned"_s);
    f->keyring.values = {{Secrets::pushoverUser, QByteArray(30, 'u')},
                         {Secrets::pushoverToken, QByteArray(30, 't')}};
    phone->tell({{"body"_L1, uR"({"status":1,"receipt":"%1"})"_s.arg(QString(30, u'R'))}});
    server->tell({{"body"_L1, uR"({"ok":true})"_s}});
}

void ModelPhoneTest::cleanup()
{
    f.reset();
    phone.reset();
    server.reset();
}

ModelPhoneTest::Body ModelPhoneTest::health()
{
    return {{"configured"_L1, true},
            {"sources"_L1, QJsonObject{{"direct"_L1, u"ok"_s}}},
            {"delivery"_L1, u"ok"_s},
            {"scheduler"_L1, true},
            {"directSources"_L1, 1}};
}

void ModelPhoneTest::useServer()
{
    f->addSetting(u"serverURL=%1"_s.arg(server->url().toString()));
    f->keyring.values.insert(Secrets::serverToken, QByteArray(32, 's'));
}

void ModelPhoneTest::say(const Body &health, const QJsonArray &events, const QJsonArray &acknowledged)
{
    const QJsonObject state{{"events"_L1, events}, {"acknowledged"_L1, acknowledged}, {"health"_L1, health}};
    server->tell({{"path"_L1, u"/state"_s},
                  {"body"_L1, QString::fromUtf8(QJsonDocument(state).toJson(QJsonDocument::Compact))}});
}

void ModelPhoneTest::refresh()
{
    QTRY_VERIFY(!f->model->isRefreshing());
    f->clock.time += 6; // longer than a server that knows all is left alone
    launch(f->model->refresh());
    QTRY_VERIFY_WITH_TIMEOUT(!f->model->isRefreshing(), 15'000);
}

QStringList ModelPhoneTest::paths(HttpsPeer &peer) const
{
    QStringList found;
    for (const QString &request : peer.requests())
        found.append(request.section(u' ', 1, 1));
    return found;
}

QString ModelPhoneTest::lastBody(HttpsPeer &peer, const QString &path) const
{
    return peer.requests().filter(u' ' + path + u' ').value(0).section(u' ', -1);
}

void ModelPhoneTest::withoutAServerOneMessageRings()
{
    f->store->add(u"a"_s, noon + 121);
    f->store->add(u"b"_s, noon + 5000);
    f->start();
    QCOMPARE(f->model->cloudStatus(), u"Local only. Phone delivery stops while this Mac sleeps."_s);
    f->tickAt(noon);
    QTest::qWait(50);
    QCOMPARE(paths(*phone), QStringList());
    f->tickAt(noon + 1);
    f->tickAt(noon + 2);
    const QString id = Meeting::identity(u"a"_s, noon + 121);
    QTRY_VERIFY(f->model->records().value(id).phoneSent);
    f->tickAt(noon + 3);
    QCOMPARE(paths(*phone), QStringList{u"/1/messages.json"_s});
    const QUrlQuery fields(lastBody(*phone, u"/1/messages.json"_s));
    QCOMPARE(fields.queryItemValue(u"tags"_s), id);
    QCOMPARE(fields.queryItemValue(u"priority"_s), u"2"_s);
    QCOMPARE(f->model->records().value(id).receipt, QString(30, u'R'));
    f->restart(); // and never again after a restart
    f->tickAt(noon + 4);
    QTest::qWait(50);
    QCOMPARE(paths(*phone).count(u"/1/messages.json"_s), 1);
}

void ModelPhoneTest::aFailedMessageIsRepeatedAfterThirtySeconds()
{
    const QString failed = u"Phone alert failed. Retrying; screen alerts remain active."_s;
    f->store->add(u"a"_s, noon + 100);
    phone->tell({{"path"_L1, u"/1/messages.json"_s}, {"status"_L1, 429}});
    f->start();
    f->tickAt(noon + 1);
    QTRY_COMPARE(f->model->notice(), failed);
    f->tickAt(noon + 31);
    QTest::qWait(50);
    QCOMPARE(paths(*phone).size(), 1);
    phone->tell({{"path"_L1, u"/1/messages.json"_s}, {"body"_L1, uR"({"status":1})"_s}});
    f->tickAt(noon + 32);
    QTRY_VERIFY(f->model->records().value(Meeting::identity(u"a"_s, noon + 100)).phoneSent);
    QVERIFY(!f->model->notice());
    QCOMPARE(paths(*phone).size(), 2);
}

void ModelPhoneTest::aKeyringThatComesLaterIsAskedAgain()
{
    f->store->add(u"a"_s, noon + 100);
    const QByteArray token = f->keyring.values.take(Secrets::pushoverToken);
    f->start();
    f->tickAt(noon + 1);
    for (const int length : {29, 31}) {
        f->keyring.values.insert(Secrets::pushoverToken, QByteArray(length, 't'));
        f->tickAt(noon + 20 + length);
    }
    QTest::qWait(50);
    QCOMPARE(paths(*phone), QStringList());
    QVERIFY(!f->model->notice());
    f->keyring.values.insert(Secrets::pushoverToken, token);
    f->tickAt(noon + 60);
    QTRY_COMPARE(paths(*phone).size(), 1);
}

void ModelPhoneTest::anAnswerOnThePhoneClosesTheAlert()
{
    f->store->add(u"a"_s, noon + 60);
    f->start();
    const QString id = Meeting::identity(u"a"_s, noon + 60);
    const QString receipt = u"/1/receipts/%1.json"_s.arg(QString(30, u'R'));
    const auto answer = [&](int acknowledged) {
        phone->tell({{"path"_L1, receipt},
                     {"body"_L1, uR"({"status":1,"acknowledged":%1,"expired":0})"_s.arg(acknowledged)}});
    };
    answer(0);
    f->tickAt(noon + 1);
    QTRY_VERIFY(f->model->records().value(id).receipt.has_value());
    QCOMPARE(f->shown(), id);
    f->tickAt(noon + 17);
    QTRY_COMPARE(paths(*phone).filter(u"token="_s).size(), 1);
    QTest::qWait(100);
    answer(1);
    f->tickAt(noon + 32); // asked again only after 15 seconds
    QTest::qWait(100);
    QCOMPARE(f->shown(), id);
    f->tickAt(noon + 33);
    QTRY_VERIFY(f->model->records().value(id).acknowledged);
    QCOMPARE(f->shown(), QString());
    QTRY_VERIFY(paths(*phone).contains(u"/1/receipts/cancel_by_tag/%1.json"_s.arg(id)));
    QCOMPARE(paths(*phone).filter(u"token="_s).size(), 2);
}

void ModelPhoneTest::anAnswerHereSilencesThePhoneAndTellsTheServer()
{
    useServer();
    say(health());
    f->store->add(u"a"_s, noon + 60);
    f->start();
    QTRY_VERIFY(!f->model->isRefreshing());
    const QString id = Meeting::identity(u"a"_s, noon + 60);
    QCOMPARE(f->shown(), id);
    launch(f->model->acknowledge(id));
    QCOMPARE(f->shown(), QString()); // at once, whatever the network does
    QTRY_COMPARE(lastBody(*server, u"/ack"_s), uR"({"id":"%1"})"_s.arg(id));
    QTRY_COMPARE(paths(*phone), QStringList{u"/1/receipts/cancel_by_tag/%1.json"_s.arg(id)});
    QTRY_COMPARE(f->preferences.pendingAcks(), QStringList());
    QVERIFY(!f->model->notice());
}

void ModelPhoneTest::anAnswerWhileTheMessageIsOnItsWaySilencesIt()
{
    f->store->add(u"a"_s, noon + 60);
    f->start();
    const QString id = Meeting::identity(u"a"_s, noon + 60);
    f->tickAt(noon + 1);
    launch(f->model->acknowledge(id)); // before the service has answered
    const QString cancel = u"/1/receipts/cancel_by_tag/%1.json"_s.arg(id);
    QTRY_VERIFY(f->model->records().value(id).phoneSent);
    QTRY_COMPARE(paths(*phone).value(2),
                 cancel); // the message, a cancellation that came too early, another one
    QVERIFY(f->model->records().value(id).acknowledged);
}

void ModelPhoneTest::anAnswerTheServerMissedIsToldLater()
{
    useServer();
    say(health());
    f->store->add(u"a"_s, noon + 60);
    f->start();
    QTRY_VERIFY(!f->model->isRefreshing());
    server->tell({{"path"_L1, u"/ack"_s}, {"status"_L1, 503}});
    const QString id = Meeting::identity(u"a"_s, noon + 60);
    launch(f->model->acknowledge(id));
    QTRY_COMPARE(f->model->notice(),
                 u"Acknowledged on this Mac. Phone acknowledgment could not sync; retry from the phone."_s);
    QCOMPARE(f->preferences.pendingAcks(), QStringList{id});
    f->restart();
    QTRY_VERIFY(!f->model->isRefreshing());
    QTRY_COMPARE(paths(*server).count(u"/ack"_s), 2);
    QCOMPARE(f->preferences.pendingAcks(), QStringList{id});
    QTest::qWait(100); // for the answer to be taken
    server->tell({{"path"_L1, u"/ack"_s}, {"body"_L1, uR"({"ok":true})"_s}});
    refresh();
    QTRY_COMPARE(f->preferences.pendingAcks(), QStringList());
    QCOMPARE(paths(*server).count(u"/ack"_s), 3);
    refresh();
    QTest::qWait(100);
    QCOMPARE(paths(*server).count(u"/ack"_s), 3);
}

void ModelPhoneTest::theServerIsInChargeUntilItFailedThreeTimes()
{
    useServer();
    say(health());
    f->store->add(u"a"_s, noon + 100);
    f->start();
    QTRY_VERIFY(!f->model->isRefreshing());
    QCOMPARE(f->model->cloudStatus(), u"Connected"_s); // it does not know the meeting
    server->tell({{"path"_L1, u"/state"_s}, {"status"_L1, 500}});
    for (int failures = 1; failures <= 3; ++failures) {
        f->tickAt(noon + 5 * failures);
        QTest::qWait(30);
        QCOMPARE(paths(*phone), QStringList());
        refresh();
        QCOMPARE(
            f->model->cloudStatus(),
            u"Server unreachable. Screen alerts remain active; phone backup starts after repeated failures."_s);
        QVERIFY(!f->model->scheduleSynced());
    }
    f->tickAt(noon + 25);
    QTRY_COMPARE(paths(*phone), QStringList{u"/1/messages.json"_s});
    QCOMPARE(f->model->localMeetings().size(), std::size_t(1));
    say(health());
    refresh();
    QVERIFY(f->model->localMeetings().empty());
    QCOMPARE(f->model->status(), u"1 meetings scheduled for alerts"_s);
}

void ModelPhoneTest::aServerThatCannotDeliverIsNotLeftAlone_data()
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

void ModelPhoneTest::aServerThatCannotDeliverIsNotLeftAlone()
{
    QFETCH(QJsonObject, change);
    QFETCH(QString, text);
    QFETCH(bool, delivers);
    useServer();
    f->addSetting(u"uploadMacSnapshot=true"_s);
    Body body = health();
    for (auto entry = change.begin(); entry != change.end(); ++entry)
        body.insert(entry.key(), entry.value());
    if (body.take("refuses"_L1).toBool())
        server->tell({{"path"_L1, u"/snapshot"_s}, {"status"_L1, 500}});
    say(body);
    f->store->add(u"a"_s, noon + 100);
    f->start();
    QTRY_VERIFY(!f->model->isRefreshing());
    QCOMPARE(f->model->cloudStatus(), text);
    QCOMPARE(f->model->scheduleSynced(), delivers);
    f->tickAt(noon + 1);
    if (delivers)
        QTest::qWait(50);
    QTRY_COMPARE(paths(*phone).size(), delivers ? 0 : 1);
}

void ModelPhoneTest::theScheduleIsSharedOnlyWhenAskedFor()
{
    useServer();
    say(health());
    f->store->add(u"video"_s, noon + 100);
    f->store->add(u"plain"_s, noon + 200, QString());
    f->start();
    refresh();
    QVERIFY(!paths(*server).contains(u"/snapshot"_s));
    f->addSetting(u"uploadMacSnapshot=true"_s);
    refresh();
    const QJsonDocument uploaded = QJsonDocument::fromJson(lastBody(*server, u"/snapshot"_s).toUtf8());
    QCOMPARE(uploaded["events"_L1].toArray(), QJsonArray{f->model->meetings().front().toJson()});
    QVERIFY(f->model->scheduleSynced());
    server->tell({{"path"_L1, u"/snapshot"_s}, {"body"_L1, uR"({"ok":false})"_s}});
    refresh();
    QVERIFY(!f->model->scheduleSynced());
}

QJsonObject ModelPhoneTest::onServer(const QString &id, const QString &source)
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

void ModelPhoneTest::whatTheServerKnowsCountsHere()
{
    useServer();
    const QString known = Meeting::identity(u"a"_s, noon + 30);
    f->store->add(u"a"_s, noon + 30);
    say(health(),
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

void ModelPhoneTest::copiesStandInForASourceThatIsMissed()
{
    useServer();
    f->addSetting(u"fantasticalFolderBookmark="_s + f->dir.path());
    f->installReader(); // and it fails
    const QString copy(64, u'c');
    say(health(), {onServer(copy, Meeting::systemSource)});
    f->start();
    QTRY_COMPARE(f->shown(), copy);
    f->fantastical->answer(FantasticalSnapshot{});
    refresh();
    QCOMPARE(f->shown(), QString());
    f->fantastical->answer(ProcessOutcome{.exitStatus = 1});
    refresh();
    QCOMPARE(f->shown(), QString());
}

void ModelPhoneTest::anAddressWithoutATokenIsNoServer()
{
    useServer();
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
    QTRY_COMPARE(paths(*phone).size(), 2);
    QCOMPARE(paths(*server), QStringList());
    QCOMPARE(f->preferences.pendingAcks(), QStringList());
}

void ModelPhoneTest::aHangingKeyringDelaysNothing()
{
    useServer();
    f->keyring.hold.start();
    f->store->add(u"a"_s, noon + 70);
    f->start();
    f->tickAt(noon + 9);
    f->tickAt(noon + 10);
    const QString id = Meeting::identity(u"a"_s, noon + 70);
    QCOMPARE(f->shown(), id);
    launch(f->model->acknowledge(id));
    QCOMPARE(f->shown(), QString());
    f->keyring.hold.finish();
    QTRY_VERIFY(!f->model->isRefreshing());
}

QTEST_MAIN(ModelPhoneTest)
#include "model_phone_test.moc"
