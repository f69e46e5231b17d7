// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "ui/sheet/MeetingForm.h"

#include "tests/support/ModelFixture.h"

#include <QSignalSpy>
#include <QTest>

using namespace Qt::StringLiterals;
using namespace quorvane;

namespace {

QString linkOf(qsizetype length)
{
    return u"https://zoom.us/j/"_s.leftJustified(length, u'1');
}

} // namespace

class MeetingFormTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void whatMayBeAdded_data();
    void whatMayBeAdded();
    void itProposesHalfAnHourInAnHour();
    void aStartThatComesMakesItInvalid();
    void durationsAreChosenFromSix();
    void aFieldIsBlamedOnlyAfterItWasLeft();
    void aValidFormAddsItsMeetingAndIsDone();
    void anInvalidFormAddsNothing();
    void aMeetingIsAddedOnlyOnce();
    void aFormMayGoWhileItsMeetingIsAdded();
};

void MeetingFormTest::whatMayBeAdded_data()
{
    QTest::addColumn<QString>("title");
    QTest::addColumn<double>("lead");
    QTest::addColumn<QString>("link");
    QTest::addColumn<bool>("valid");
    const QString name = u"Coffee"_s;
    const QString none;
    QTest::newRow("a name and a later start") << name << 3600.0 << none << true;
    QTest::newRow("no name") << none << 3600.0 << none << false;
    QTest::newRow("a name of blanks") << u" \t\n\u00a0"_s << 3600.0 << none << false;
    QTest::newRow("a name of 1000 characters") << QString(1000, u'w') << 3600.0 << none << true;
    QTest::newRow("a name of 1001 characters") << QString(1001, u'w') << 3600.0 << none << false;
    QTest::newRow("1000 and a blank") << QString(1000, u'w') + u' ' << 3600.0 << none << false;
    QTest::newRow("1000 characters of two units") << u"🎉"_s.repeated(1000) << 3600.0 << none << true;
    QTest::newRow("a start right now") << name << 0.0 << none << false;
    QTest::newRow("a start in a second") << name << 1.0 << none << true;
    QTest::newRow("a start that was") << name << -1.0 << none << false;
    QTest::newRow("a link of 2000 characters") << name << 3600.0 << linkOf(2000) << true;
    QTest::newRow("a link of 2001 characters") << name << 3600.0 << linkOf(2001) << false;
    QTest::newRow("a link of blanks") << name << 3600.0 << u"  "_s << false;
    QTest::newRow("a link of Zoom") << name << 3600.0 << u"zoommtg://zoom.us/join?confno=1"_s << true;
    QTest::newRow("a link of Teams") << name << 3600.0 << u"msteams://teams.microsoft.com/l/1"_s << true;
    QTest::newRow("an unencrypted link") << name << 3600.0 << u"http://zoom.us/j/1"_s << false;
    QTest::newRow("an unknown scheme") << name << 3600.0 << u"webex://join/1"_s << false;
    QTest::newRow("no scheme") << name << 3600.0 << u"zoom.us/j/1"_s << false;
    QTest::newRow("a link with a password") << name << 3600.0 << u"https://a:b@zoom.us/j/1"_s << false;
}

void MeetingFormTest::whatMayBeAdded()
{
    QFETCH(QString, title);
    QFETCH(double, lead);
    QFETCH(QString, link);
    ModelFixture fixture;
    fixture.start();
    MeetingForm form(*fixture.model);
    form.setTitle(title);
    form.setStart(ModelFixture::noon + lead);
    form.setLink(link);
    QTEST(form.isValid(), "valid");
    QCOMPARE(form.property("canSave").toBool(), form.isValid());
}

void MeetingFormTest::itProposesHalfAnHourInAnHour()
{
    ModelFixture fixture;
    fixture.clock.time = ModelFixture::noon + 12.7;
    fixture.start();
    const MeetingForm form(*fixture.model);
    QCOMPARE(form.start(), ModelFixture::noon + 12 + 3600);
    QCOMPARE(form.duration(), 30);
    QCOMPARE(form.title() + form.link(), QString());
    QVERIFY(!form.isSaving());
}

void MeetingFormTest::aStartThatComesMakesItInvalid()
{
    ModelFixture fixture;
    fixture.start();
    MeetingForm form(*fixture.model);
    form.setTitle(u"Coffee"_s);
    QVERIFY(form.isValid());
    const QSignalSpy validity(&form, &MeetingForm::validChanged);
    fixture.tickAt(ModelFixture::noon + 3599);
    QCOMPARE(validity.count(), 0);
    QCOMPARE(form.startError(), QString());
    fixture.tickAt(ModelFixture::noon + 3600);
    QCOMPARE(validity.count(), 1);
    QVERIFY(!form.isValid());
    QCOMPARE(form.startError(), u"Choose a time in the future."_s);
}

void MeetingFormTest::durationsAreChosenFromSix()
{
    ModelFixture fixture;
    fixture.start();
    MeetingForm form(*fixture.model);
    const QStringList labels{u"15 minutes"_s, u"30 minutes"_s, u"45 minutes"_s,
                             u"60 minutes"_s, u"90 minutes"_s, u"120 minutes"_s};
    QCOMPARE(form.durationLabels(), labels);
    QCOMPARE(form.durationIndex(), 1);
    form.chooseDuration(5);
    QCOMPARE(form.duration(), 120);
    form.chooseDuration(6);
    QCOMPARE(form.duration(), 120);
}

void MeetingFormTest::aFieldIsBlamedOnlyAfterItWasLeft()
{
    ModelFixture fixture;
    fixture.start();
    MeetingForm form(*fixture.model);
    form.leaveTitle();
    form.setLink(u"zoom"_s);
    QCOMPARE(form.titleError() + form.linkError(), QString());
    form.leaveLink();
    QCOMPARE(form.linkError(), u"Use an HTTPS, Zoom or Teams link."_s);
    form.setLink(u"https://zoom.us/j/1"_s);
    QCOMPARE(form.linkError(), QString());
    form.setTitle(u"C"_s);
    form.setTitle(QString());
    QCOMPARE(form.titleError(), QString());
    form.leaveTitle();
    QVERIFY(!form.titleError().isEmpty());
    form.setTitle(QString(1001, u'w'));
    QVERIFY(form.titleError().contains(u"1000"_s));
    form.setLink(linkOf(2001));
    QVERIFY(form.linkError().contains(u"2000"_s));
}

void MeetingFormTest::aValidFormAddsItsMeetingAndIsDone()
{
    ModelFixture fixture;
    fixture.start();
    MeetingForm form(*fixture.model);
    const QSignalSpy done(&form, &MeetingForm::dismissed);
    form.setTitle(u"Coffee"_s);
    form.setLink(u"https://zoom.us/j/1"_s);
    form.chooseDuration(2);
    form.save();
    QTRY_COMPARE(done.count(), 1);
    QVERIFY(!form.isSaving());
    const std::vector<Meeting> added = fixture.model->manualMeetings();
    QCOMPARE(added.size(), 1U);
    QCOMPARE(added.front().title, u"Coffee"_s);
    QCOMPARE(added.front().start, ModelFixture::noon + 3600);
    QCOMPARE(added.front().end, added.front().start + 45 * 60);
    QCOMPARE(added.front().joinURL, u"https://zoom.us/j/1"_s);
    QVERIFY(fixture.model->isScheduled(added.front()));
}

void MeetingFormTest::anInvalidFormAddsNothing()
{
    ModelFixture fixture;
    fixture.start();
    MeetingForm form(*fixture.model);
    form.save();
    QVERIFY(!form.isSaving());
    // Valid when it was last looked at, and no longer.
    form.setTitle(u"Coffee"_s);
    fixture.clock.time = form.start();
    form.save();
    QVERIFY(!form.isSaving());
    QVERIFY(fixture.model->manualMeetings().empty());
}

void MeetingFormTest::aMeetingIsAddedOnlyOnce()
{
    ModelFixture fixture;
    fixture.start();
    MeetingForm form(*fixture.model);
    const QSignalSpy done(&form, &MeetingForm::dismissed);
    form.setTitle(u"Coffee"_s);
    fixture.store->hangs = true;
    form.save();
    QVERIFY(form.isSaving());
    QVERIFY(form.isValid());
    QVERIFY(!form.canSave());
    form.save();
    fixture.store->hangs = false;
    Q_EMIT fixture.store->released();
    QTRY_COMPARE(done.count(), 1);
    QCOMPARE(fixture.model->manualMeetings().size(), 1U);
}

void MeetingFormTest::aFormMayGoWhileItsMeetingIsAdded()
{
    ModelFixture fixture;
    fixture.start();
    {
        MeetingForm form(*fixture.model);
        form.setTitle(u"Coffee"_s);
        form.save();
    }
    QTRY_COMPARE(fixture.model->manualMeetings().size(), 1U);
    QTRY_VERIFY(!fixture.model->isRefreshing());
}

QTEST_MAIN(MeetingFormTest)
#include "meeting_form_test.moc"
