// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "core/AlertRecord.h"
#include "core/Meeting.h"
#include "core/StrictJson.h"

#include <QTest>

using namespace Qt::StringLiterals;
using namespace quorvane;

class MeetingTest final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void identityIsTheHashOfUidAndWholeStart_data();
    void identityIsTheHashOfUidAndWholeStart();
    void anOccurrenceHasItsOwnIdentity();
    void eligibilityEndsTwoMinutesAfterTheStart_data();
    void eligibilityEndsTwoMinutesAfterTheStart();
    void aMeetingSurvivesItsJson();
    void aMeetingWithADamagedKeyIsRefused_data();
    void aMeetingWithADamagedKeyIsRefused();
    void anAlertRecordSurvivesItsJson();
    void anAlertRecordWithADamagedKeyIsRefused_data();
    void anAlertRecordWithADamagedKeyIsRefused();

private:
    static Meeting sample()
    {
        return {.id = u"id"_s,
                .title = u"Résumé 🎉"_s,
                .start = 1000.5,
                .end = 2000,
                .calendar = u"Work"_s,
                .joinURL = u"https://zoom.us/j/1"_s,
                .source = u"elsewhere"_s};
    }

    // A key at a time is removed ("-key") or given another type ("key").
    static QJsonObject damaged(QJsonObject object, const QString &damage)
    {
        if (damage.startsWith(u'-'))
            object.remove(damage.mid(1));
        else
            object.insert(damage, object.value(damage).isString() ? QJsonValue(1) : QJsonValue(u"1"_s));
        return object;
    }

    static void damageEach(std::initializer_list<const char *> keys)
    {
        QTest::addColumn<QString>("damage");
        QTest::addColumn<JsonError>("error");
        for (const char *key : keys) {
            QTest::addRow("%s missing", key) << u'-' + QString::fromLatin1(key) << JsonError::missingKey;
            QTest::addRow("%s mistyped", key) << QString::fromLatin1(key) << JsonError::wrongType;
        }
    }
};

void MeetingTest::identityIsTheHashOfUidAndWholeStart_data()
{
    QTest::addColumn<QString>("uid");
    QTest::addColumn<double>("start");
    QTest::addColumn<QString>("identity");
    // printf 'ABC-123|1000' | sha256sum
    const QString known = u"e37778e57abd062e91e5d59474facc2a42ca7ec2796179a294749fe167949696"_s;
    QTest::newRow("whole") << u"ABC-123"_s << 1000.0 << known;
    QTest::newRow("fraction is cut") << u"ABC-123"_s << 1000.9 << known;
    QTest::newRow("negative is cut toward zero") << u"x"_s << -0.9 << Meeting::identity(u"x"_s, 0);
}

void MeetingTest::identityIsTheHashOfUidAndWholeStart()
{
    QFETCH(QString, uid);
    QFETCH(double, start);
    QTEST(Meeting::identity(uid, start), "identity");
}

void MeetingTest::anOccurrenceHasItsOwnIdentity()
{
    QVERIFY(Meeting::identity(u"a"_s, 1000) != Meeting::identity(u"a"_s, 1001));
    QVERIFY(Meeting::identity(u"a"_s, 1000) != Meeting::identity(u"b"_s, 1000));
}

void MeetingTest::eligibilityEndsTwoMinutesAfterTheStart_data()
{
    QTest::addColumn<Meeting>("meeting");
    QTest::addColumn<bool>("eligible");
    const double now = 10'000;
    QTest::newRow("ahead") << Meeting{.start = now + 500, .end = now + 900} << true;
    QTest::newRow("begun 120 s ago") << Meeting{.start = now - 120, .end = now + 1} << true;
    QTest::newRow("begun 121 s ago") << Meeting{.start = now - 121, .end = now + 1} << false;
    QTest::newRow("no length") << Meeting{.start = now, .end = now} << false;
    QTest::newRow("cancelled") << Meeting{.start = now, .end = now + 9, .cancelled = true} << false;
    QTest::newRow("all day") << Meeting{.start = now, .end = now + 9, .allDay = true} << false;
}

void MeetingTest::eligibilityEndsTwoMinutesAfterTheStart()
{
    QFETCH(Meeting, meeting);
    QTEST(meeting.eligible(10'000), "eligible");
}

void MeetingTest::aMeetingSurvivesItsJson()
{
    const Meeting meeting = sample();
    QCOMPARE(Meeting::fromJson(meeting.toJson()).value(), meeting);

    Meeting linkless = sample();
    linkless.joinURL.reset();
    QVERIFY(!linkless.toJson().contains("joinURL"_L1));
    QCOMPARE(Meeting::fromJson(linkless.toJson()).value(), linkless);

    QJsonObject null = linkless.toJson();
    null.insert("joinURL"_L1, QJsonValue::Null);
    QCOMPARE(Meeting::fromJson(null).value(), linkless);
}

void MeetingTest::aMeetingWithADamagedKeyIsRefused_data()
{
    damageEach({"id", "title", "start", "end", "calendar", "source", "cancelled", "allDay"});
    QTest::newRow("joinURL mistyped") << u"joinURL"_s << JsonError::wrongType;
}

void MeetingTest::aMeetingWithADamagedKeyIsRefused()
{
    QFETCH(QString, damage);
    QFETCH(JsonError, error);
    const auto meeting = Meeting::fromJson(damaged(sample().toJson(), damage));
    QVERIFY(!meeting);
    QVERIFY(meeting.error() == error);
}

void MeetingTest::anAlertRecordSurvivesItsJson()
{
    AlertRecord record{.acknowledged = true, .snoozedUntil = 5.25, .shownAt = 1e9, .phoneSent = true};
    QVERIFY(!record.toJson().contains("receipt"_L1));
    QCOMPARE(AlertRecord::fromJson(record.toJson()).value(), record);
    record.receipt = u"r"_s;
    QCOMPARE(AlertRecord::fromJson(record.toJson()).value(), record);
}

void MeetingTest::anAlertRecordWithADamagedKeyIsRefused_data()
{
    damageEach({"acknowledged", "snoozedUntil", "shownAt", "phoneSent"});
}

void MeetingTest::anAlertRecordWithADamagedKeyIsRefused()
{
    QFETCH(QString, damage);
    QFETCH(JsonError, error);
    const auto record = AlertRecord::fromJson(damaged(AlertRecord().toJson(), damage));
    QVERIFY(!record);
    QVERIFY(record.error() == error);
}

QTEST_GUILESS_MAIN(MeetingTest)
#include "meeting_test.moc"
