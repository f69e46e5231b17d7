// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "core/StrictJson.h"
#include "model/ManualMeetings.h"
#include "network/Secrets.h"
#include "tests/support/MemorySecrets.h"

#include <QSignalSpy>
#include <QTest>

#include <memory>

using namespace Qt::StringLiterals;
using namespace quorvane;

class ManualMeetingsTest final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void meetingsSurviveARestart();
    void aLockedKeyringIsNotOverwritten();
    void twoCopiesOfTheProgramLoseNothing();
    void writesThatOverlapEndWithTheLastState();
    void aWriteThatFailedIsRepeatedWithTheNext();
    void whatCannotBeUnderstoodIsSetAside_data();
    void whatCannotBeUnderstoodIsSetAside();
    void nothingIsOverwrittenThatCouldNotBeSetAside();
    void whatIsLongOverIsDropped();

private:
    static constexpr double now = 1'800'000'000;

    static Meeting meeting(const QString &id, double start = now + 100)
    {
        return {.id = id,
                .title = id,
                .start = start,
                .end = start + 1800,
                .calendar = u"Added by you"_s,
                .source = Meeting::manualSource};
    }
    bool sync() { return QCoro::waitFor(list->sync(now)).has_value(); }
    static QStringList ids(const std::vector<Meeting> &meetings)
    {
        QStringList found;
        for (const Meeting &meeting : meetings)
            found.append(meeting.id);
        return found;
    }
    [[nodiscard]] QStringList kept() const
    {
        return ids(
            ManualMeetingText::of(QString::fromUtf8(keyring.values[Secrets::manualMeetings])).meetings);
    }

    MemorySecrets keyring;
    Secrets secrets{keyring};
    std::unique_ptr<ManualMeetings> list;
};

void ManualMeetingsTest::init()
{
    keyring.values.clear();
    keyring.written.clear();
    keyring.refused.clear();
    keyring.failure = {};
    list = std::make_unique<ManualMeetings>(secrets);
}

void ManualMeetingsTest::meetingsSurviveARestart()
{
    Meeting full = meeting(u"a"_s);
    full.title = u"Kaffee – “mit” 🎉"_s;
    full.joinURL = u"https://zoom.us/j/1"_s;
    list->add(full);
    list->add(meeting(u"b"_s));
    QVERIFY(!list->isSaved());
    QVERIFY(sync());
    QVERIFY(list->isSaved());
    ManualMeetings later(secrets);
    QVERIFY(QCoro::waitFor(later.load()));
    QCOMPARE(later.meetings(), std::vector<Meeting>({full, meeting(u"b"_s)}));
    keyring.written.clear();
    QVERIFY(sync()); // nothing to be written
    QVERIFY(keyring.written.isEmpty());
}

void ManualMeetingsTest::aLockedKeyringIsNotOverwritten()
{
    keyring.values[Secrets::manualMeetings] = ManualMeetingText::text({meeting(u"old"_s)}).toUtf8();
    keyring.failure = std::make_error_code(std::errc::permission_denied);
    QVERIFY(!QCoro::waitFor(list->load()));
    list->add(meeting(u"new"_s));
    QVERIFY(!sync());
    QVERIFY(!list->isKnown());
    QCOMPARE(ids(list->meetings()), QStringList(u"new"_s));
    QVERIFY(keyring.written.isEmpty());
    keyring.failure = {};
    QVERIFY(sync());
    QCOMPARE(ids(list->meetings()), QStringList({u"old"_s, u"new"_s}));
    QCOMPARE(kept(), QStringList({u"old"_s, u"new"_s}));
}

void ManualMeetingsTest::twoCopiesOfTheProgramLoseNothing()
{
    list->add(meeting(u"a"_s));
    QVERIFY(sync());
    ManualMeetings other(secrets);
    QVERIFY(QCoro::waitFor(other.load()));
    other.add(meeting(u"b"_s));
    other.remove(u"a"_s);
    QVERIFY(QCoro::waitFor(other.sync(now)));
    list->add(meeting(u"c"_s));
    QVERIFY(sync());
    QCOMPARE(kept(), QStringList({u"b"_s, u"c"_s}));
}

void ManualMeetingsTest::writesThatOverlapEndWithTheLastState()
{
    keyring.writeHold.start();
    list->add(meeting(u"a"_s));
    QCoro::Task<Result<void>> first = list->sync(now);
    list->add(meeting(u"b"_s));
    QCoro::Task<Result<void>> second = list->sync(now);
    list->remove(u"a"_s);
    QCoro::Task<Result<void>> third = list->sync(now);
    QTest::qWait(20);
    QCOMPARE(ids(list->meetings()), QStringList(u"b"_s));
    keyring.writeHold.finish();
    QVERIFY(QCoro::waitFor(first));
    QVERIFY(QCoro::waitFor(second));
    QVERIFY(QCoro::waitFor(third));
    QCOMPARE(kept(), QStringList(u"b"_s));
    QCOMPARE(ids(list->meetings()), QStringList(u"b"_s));
    QVERIFY(list->wasRemoved(u"a"_s));
    keyring.writeHold = {};
}

void ManualMeetingsTest::aWriteThatFailedIsRepeatedWithTheNext()
{
    list->add(meeting(u"a"_s));
    keyring.refused = {Secrets::manualMeetings};
    QVERIFY(!sync());
    QCOMPARE(ids(list->meetings()), QStringList(u"a"_s));
    keyring.refused.clear();
    list->add(meeting(u"b"_s));
    QVERIFY(sync());
    QCOMPARE(kept(), QStringList({u"a"_s, u"b"_s}));
}

void ManualMeetingsTest::whatCannotBeUnderstoodIsSetAside_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QStringList>("understood");
    const QString good = ManualMeetingText::text({meeting(u"a"_s)});
    QTest::newRow("no JSON") << u"what is this"_s << QStringList();
    QTest::newRow("no list") << u"{}"_s << QStringList();
    QTest::newRow("cut off") << good.chopped(3) << QStringList();
    QTest::newRow("one of two") << QString(good).replace(u']', u",{\"id\":\"b\"}]"_s) << QStringList(u"a"_s);
}

void ManualMeetingsTest::whatCannotBeUnderstoodIsSetAside()
{
    QFETCH(QString, text);
    QFETCH(QStringList, understood);
    keyring.values[Secrets::manualMeetings] = text.toUtf8();
    QSignalSpy aside(list.get(), &ManualMeetings::wasSetAside);
    QVERIFY(QCoro::waitFor(list->load()));
    QCOMPARE(ids(list->meetings()), understood);
    list->add(meeting(u"new"_s));
    QVERIFY(sync());
    QCOMPARE(aside.size(), 1);
    QCOMPARE(kept(), understood + QStringList(u"new"_s));
    QVERIFY(keyring.written.constFirst().startsWith(u"manual-meetings-unreadable-"_s));
    QCOMPARE(keyring.values[keyring.written.constFirst()], text.toUtf8());
    QVERIFY(sync());
    QCOMPARE(aside.size(), 1);
}

void ManualMeetingsTest::nothingIsOverwrittenThatCouldNotBeSetAside()
{
    keyring.values[Secrets::manualMeetings] = "[1]";
    keyring.refused = {u"manual-meetings-unreadable"_s};
    list->add(meeting(u"new"_s));
    QVERIFY(!sync());
    QCOMPARE(keyring.values, (QMap<QString, QByteArray>{{Secrets::manualMeetings, "[1]"}}));
    QCOMPARE(ids(list->meetings()), QStringList(u"new"_s));
}

void ManualMeetingsTest::whatIsLongOverIsDropped()
{
    list->add(meeting(u"over"_s, now - 1800 - ManualMeetings::keepEndedFor - 1));
    list->add(meeting(u"yesterday"_s, now - 1800 - ManualMeetings::keepEndedFor + 1));
    QVERIFY(sync());
    QCOMPARE(kept(), QStringList(u"yesterday"_s));
    QCOMPARE(ids(list->meetings()), QStringList(u"yesterday"_s));
}

QTEST_GUILESS_MAIN(ManualMeetingsTest)

#include "manual_meetings_test.moc"
