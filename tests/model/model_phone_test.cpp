// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "tests/support/PhoneFixture.h"

#include <QTest>
#include <QUrlQuery>

#include <memory>

using namespace Qt::StringLiterals;
using namespace quorvane;

/// The phone, when this machine tells it.
class ModelPhoneTest final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { f = std::make_unique<PhoneFixture>(); }
    void cleanup() { f.reset(); }
    void withoutAServerOneMessageRings();
    void aFailedMessageIsRepeatedAfterThirtySeconds();
    void aKeyringThatComesLaterIsAskedAgain();
    void anAnswerOnThePhoneClosesTheAlert();
    void anAnswerHereSilencesThePhoneAndTellsTheServer();
    void anAnswerWhileTheMessageIsOnItsWaySilencesIt();
    void aHangingKeyringDelaysNothing();
    void meetingsByTheHundredAreNotSentAtOnce();

private:
    static constexpr double noon = ModelFixture::noon;

    std::unique_ptr<PhoneFixture> f;
};

void ModelPhoneTest::withoutAServerOneMessageRings()
{
    f->store->add(u"a"_s, noon + 121);
    f->store->add(u"b"_s, noon + 5000);
    f->start();
    QCOMPARE(f->model->cloudStatus(), u"Local only. Phone delivery stops while this Mac sleeps."_s);
    f->tickAt(noon);
    QTest::qWait(50);
    QCOMPARE(f->paths(f->phone), QStringList());
    f->tickAt(noon + 1);
    f->tickAt(noon + 2);
    const QString id = Meeting::identity(u"a"_s, noon + 121);
    QTRY_VERIFY(f->model->records().value(id).phoneSent);
    f->tickAt(noon + 3);
    QCOMPARE(f->paths(f->phone), QStringList{u"/1/messages.json"_s});
    const QUrlQuery fields(f->lastBody(f->phone, u"/1/messages.json"_s));
    QCOMPARE(fields.queryItemValue(u"tags"_s), id);
    QCOMPARE(fields.queryItemValue(u"priority"_s), u"2"_s);
    QCOMPARE(f->model->records().value(id).receipt, QString(30, u'R'));
    f->restart(); // and never again after a restart
    f->tickAt(noon + 4);
    QTest::qWait(50);
    QCOMPARE(f->paths(f->phone).count(u"/1/messages.json"_s), 1);
}

void ModelPhoneTest::aFailedMessageIsRepeatedAfterThirtySeconds()
{
    const QString failed = u"Phone alert failed. Retrying; screen alerts remain active."_s;
    f->store->add(u"a"_s, noon + 100);
    f->phone.tell({{"path"_L1, u"/1/messages.json"_s}, {"status"_L1, 429}});
    f->start();
    f->tickAt(noon + 1);
    QTRY_COMPARE(f->model->notice(), failed);
    f->tickAt(noon + 31);
    QTest::qWait(50);
    QCOMPARE(f->paths(f->phone).size(), 1);
    f->phone.tell({{"path"_L1, u"/1/messages.json"_s}, {"body"_L1, uR"({"status":1})"_s}});
    f->tickAt(noon + 32);
    QTRY_VERIFY(f->model->records().value(Meeting::identity(u"a"_s, noon + 100)).phoneSent);
    QVERIFY(!f->model->notice());
    QCOMPARE(f->paths(f->phone).size(), 2);
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
    QCOMPARE(f->paths(f->phone), QStringList());
    QVERIFY(!f->model->notice());
    f->keyring.values.insert(Secrets::pushoverToken, token);
    f->tickAt(noon + 60);
    QTRY_COMPARE(f->paths(f->phone).size(), 1);
}

void ModelPhoneTest::anAnswerOnThePhoneClosesTheAlert()
{
    f->store->add(u"a"_s, noon + 60);
    f->start();
    const QString id = Meeting::identity(u"a"_s, noon + 60);
    const QString receipt = u"/1/receipts/%1.json"_s.arg(QString(30, u'R'));
    const auto answer = [&](int acknowledged) {
        f->phone.tell({{"path"_L1, receipt},
                       {"body"_L1, uR"({"status":1,"acknowledged":%1,"expired":0})"_s.arg(acknowledged)}});
    };
    answer(0);
    f->tickAt(noon + 1);
    QTRY_VERIFY(f->model->records().value(id).receipt.has_value());
    QCOMPARE(f->shown(), id);
    f->tickAt(noon + 17);
    QTRY_COMPARE(f->paths(f->phone).filter(u"token="_s).size(), 1);
    QTest::qWait(100);
    answer(1);
    f->tickAt(noon + 32); // asked again only after 15 seconds
    QTest::qWait(100);
    QCOMPARE(f->shown(), id);
    f->tickAt(noon + 33);
    QTRY_VERIFY(f->model->records().value(id).acknowledged);
    QCOMPARE(f->shown(), QString());
    QTRY_VERIFY(f->paths(f->phone).contains(u"/1/receipts/cancel_by_tag/%1.json"_s.arg(id)));
    QCOMPARE(f->paths(f->phone).filter(u"token="_s).size(), 2);
}

void ModelPhoneTest::anAnswerHereSilencesThePhoneAndTellsTheServer()
{
    f->useServer();
    f->say(f->health());
    f->store->add(u"a"_s, noon + 60);
    f->start();
    QTRY_VERIFY(!f->model->isRefreshing());
    const QString id = Meeting::identity(u"a"_s, noon + 60);
    QCOMPARE(f->shown(), id);
    launch(f->model->acknowledge(id));
    QCOMPARE(f->shown(), QString()); // at once, whatever the network does
    QTRY_COMPARE(f->lastBody(f->server, u"/ack"_s), uR"({"id":"%1"})"_s.arg(id));
    QTRY_COMPARE(f->paths(f->phone), QStringList{u"/1/receipts/cancel_by_tag/%1.json"_s.arg(id)});
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
    QTRY_COMPARE(f->paths(f->phone).value(2),
                 cancel); // the message, a cancellation that came too early, another one
    QVERIFY(f->model->records().value(id).acknowledged);
}

void ModelPhoneTest::aHangingKeyringDelaysNothing()
{
    f->useServer();
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

void ModelPhoneTest::meetingsByTheHundredAreNotSentAtOnce()
{
    for (int number = 0; number < 100; ++number)
        f->store->add(QString::number(number), noon + 100);
    f->phone.tell({{"path"_L1, u"/1/messages.json"_s}, {"fault"_L1, u"hang"_s}});
    f->start();
    QTRY_COMPARE(f->model->scheduledMeetings().size(), std::size_t(100));
    for (int second = 1; second <= 5; ++second)
        f->tickAt(noon + second);
    QTRY_COMPARE(f->paths(f->phone).size(), 2);
    QTest::qWait(100);
    QCOMPARE(f->phone.connections(), 2);
}

QTEST_MAIN(ModelPhoneTest)
#include "model_phone_test.moc"
