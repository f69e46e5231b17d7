// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "core/NewMeeting.h"
#include "model/ManualMeetingText.h"
#include "tests/support/PhoneFixture.h"

#include <QSignalSpy>
#include <QTest>

#include <memory>

using namespace Qt::StringLiterals;
using namespace quorvane;

/// What the user chooses and adds.
class ModelChoicesTest final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { f = std::make_unique<PhoneFixture>(); }
    void cleanup() { f.reset(); }

    void aChoiceHoldsAtOnceAndAfterARestart();
    void switchingOffClosesTheAlertAndSilencesThePhone();
    void whatIsSwitchedOnAgainAlertsAnew();
    void aChoiceReachesTheServerAlsoDuringARefresh();
    void aChoiceThatDidNotReachTheServerIsToldOf();
    void anotherCopysChoiceCountsHere();
    void anAddedMeetingAlertsAndSurvivesARestart();
    void whatACalendarHoldsTooAlertsOnceItIsAdded();
    void aMeetingThatIsRefusedLeavesNothing();
    void aKeyringLockedAtLoginKeepsItsMeetings();
    void aDeclinedKeyringIsNotAskedAgainForTenMinutes();
    void aDeletedMeetingIsGoneWhileItsAlertIsUp();
    void aDeletedMeetingDoesNotComeBackFromTheServer();
    void aLinkIsOpenedOrToldOf();

private:
    static constexpr double noon = ModelFixture::noon;

    void start()
    {
        f->start();
        QTRY_VERIFY(!f->model->isRefreshing());
    }
    [[nodiscard]] QJsonArray uploaded()
    {
        const QString request = f->server.requests().filter(u"/snapshot"_s).constLast();
        const QString body = request.mid(request.indexOf(u'{'));
        return QJsonDocument::fromJson(body.toUtf8())["events"_L1].toArray();
    }
    [[nodiscard]] Meeting meetingOf(const QString &uid) const
    {
        for (const Meeting &meeting : f->model->calendarEvents()) {
            if (meeting.title == uid)
                return meeting;
        }
        return {};
    }

    std::unique_ptr<PhoneFixture> f;
};

void ModelChoicesTest::aChoiceHoldsAtOnceAndAfterARestart()
{
    f->store->add(u"video"_s, noon + 1000);
    f->store->add(u"plain"_s, noon + 2000, QString());
    f->addSetting(u"[General]\nmanualMeetings=old"_s);
    start();
    const Meeting video = meetingOf(u"video"_s);
    const Meeting plain = meetingOf(u"plain"_s);
    QVERIFY(f->model->isScheduled(video) && !f->model->isScheduled(plain));
    QSignalSpy changed(f->model.get(), &AppModel::meetingsChanged);
    launch(f->model->setScheduled(video, Switch::off));
    launch(f->model->setScheduled(plain, Switch::on));
    QCOMPARE(f->model->scheduledMeetings(), std::vector<Meeting>{plain});
    QVERIFY(changed.size() >= 2);
    QCOMPARE(f->model->status(), u"1 meetings scheduled for alerts"_s);
    QTRY_VERIFY(!f->model->isRefreshing());
    QVERIFY(!f->preferences.file().value(u"manualMeetings"_s).isValid());
    f->restart();
    QTRY_COMPARE(f->model->scheduledMeetings(), std::vector<Meeting>{plain});
    QVERIFY(!f->model->notice());
}

void ModelChoicesTest::switchingOffClosesTheAlertAndSilencesThePhone()
{
    f->store->add(u"a"_s, noon + 60);
    start();
    const Meeting meeting = meetingOf(u"a"_s);
    QCOMPARE(f->shown(), meeting.id);
    f->model->snooze(meeting);
    f->tickAt(noon + 31);
    QCOMPARE(f->shown(), meeting.id);
    launch(f->model->setScheduled(meeting, Switch::off));
    QCOMPARE(f->shown(), QString());
    QTRY_VERIFY(f->paths(f->phone).contains(u"/1/receipts/cancel_by_tag/%1.json"_s.arg(meeting.id)));
    f->tickAt(noon + 70);
    QCOMPARE(f->shown(), QString());
}

void ModelChoicesTest::whatIsSwitchedOnAgainAlertsAnew()
{
    f->store->add(u"a"_s, noon + 100);
    start();
    const Meeting meeting = meetingOf(u"a"_s);
    f->tickAt(noon + 1);
    QTRY_VERIFY(f->model->records().value(meeting.id).phoneSent);
    f->tickAt(noon + 40);
    f->model->snooze(meeting);
    launch(f->model->setScheduled(meeting, Switch::on)); // as it is; nothing changes
    QVERIFY(f->model->records().value(meeting.id).phoneSent);
    launch(f->model->setScheduled(meeting, Switch::off));
    launch(f->model->setScheduled(meeting, Switch::on));
    QCOMPARE(f->shown(), meeting.id);
    f->tickAt(noon + 42);
    QTRY_COMPARE(f->paths(f->phone).count(u"/1/messages.json"_s), 2);
}

void ModelChoicesTest::aChoiceReachesTheServerAlsoDuringARefresh()
{
    f->useServer();
    f->addSetting(u"uploadMacSnapshot=true"_s);
    f->say(f->health());
    f->store->add(u"a"_s, noon + 1000);
    f->store->add(u"b"_s, noon + 2000);
    start();
    QCOMPARE(uploaded().size(), 2);
    f->store->hangs = true;
    launch(f->model->refresh());
    QCoro::Task<> chosen = f->model->setScheduled(meetingOf(u"a"_s), Switch::off);
    QTest::qWait(50);
    f->store->hangs = false;
    Q_EMIT f->store->released();
    QCoro::waitFor(chosen);
    QCOMPARE(uploaded(), QJsonArray{meetingOf(u"b"_s).toJson()});
    QVERIFY(f->model->scheduleSynced());
    QVERIFY(!f->model->notice());
}

void ModelChoicesTest::aChoiceThatDidNotReachTheServerIsToldOf()
{
    f->useServer();
    f->addSetting(u"uploadMacSnapshot=true"_s);
    f->say(f->health());
    f->store->add(u"a"_s, noon + 1000);
    start();
    f->server.tell({{"path"_L1, u"/snapshot"_s}, {"status"_L1, 500}});
    QCoro::waitFor(f->model->setScheduled(meetingOf(u"a"_s), Switch::off));
    QCOMPARE(f->model->notice(),
             u"Saved on this Mac. Phone schedule has not synced yet. Reconnect and refresh."_s);
    QCoro::waitFor(f->model->addMeeting(u"Coffee"_s, noon + 500, 30, QString()));
    QCOMPARE(f->model->notice(), u"Meeting added on this Mac. Phone schedule has not synced yet."_s);
    f->server.tell({{"path"_L1, u"/snapshot"_s}, {"body"_L1, uR"({"ok":true})"_s}});
    f->refresh();
    QVERIFY(!f->model->notice());
    QCOMPARE(uploaded(), QJsonArray{meetingOf(u"Coffee"_s).toJson()});
}

void ModelChoicesTest::anotherCopysChoiceCountsHere()
{
    f->store->add(u"a"_s, noon + 60);
    start();
    const Meeting meeting = meetingOf(u"a"_s);
    QCOMPARE(f->shown(), meeting.id);
    Preferences other(f->dir.filePath(u"settings.ini"_s));
    QVERIFY(other.mergeMeetingChoices({{meeting.id, false}}));
    QTRY_COMPARE_WITH_TIMEOUT(f->shown(), QString(), 1000);
    QVERIFY(!f->model->isScheduled(meeting));
}

void ModelChoicesTest::anAddedMeetingAlertsAndSurvivesARestart()
{
    start();
    QCoro::waitFor(f->model->addMeeting(u" Coffee "_s, noon + 90, 45, u"https://zoom.us/j/1"_s));
    const Meeting meeting = meetingOf(u"Coffee"_s);
    QCOMPARE(meeting.end, noon + 90 + 2700);
    QCOMPARE(f->model->manualMeetings(), std::vector<Meeting>{meeting});
    QCOMPARE(f->model->selectionOverrides().value(meeting.id), true);
    QVERIFY(f->keyring.values[Secrets::manualMeetings].contains("Coffee"));
    QFile settings(f->dir.filePath(u"settings.ini"_s));
    QVERIFY(settings.open(QIODevice::ReadOnly));
    QVERIFY(!settings.readAll().contains("Coffee")); // it lies in the keyring only
    f->restart();
    QTRY_COMPARE(f->model->scheduledMeetings(), std::vector<Meeting>{meeting});
    f->tickAt(noon + 30);
    QCOMPARE(f->shown(), meeting.id);
}

void ModelChoicesTest::whatACalendarHoldsTooAlertsOnceItIsAdded()
{
    // Of two that are the same either may be kept.
    constexpr int count = 8;
    for (int i = 1; i <= count; ++i)
        f->store->add(u"Coffee"_s, noon + 3600 * i, QString());
    start();
    for (int i = 1; i <= count; ++i)
        QCoro::waitFor(f->model->addMeeting(u"Coffee"_s, noon + 3600 * i, 30, QString()));
    QCOMPARE(f->model->scheduledMeetings().size(), std::size_t(count));
}

void ModelChoicesTest::aMeetingThatIsRefusedLeavesNothing()
{
    start();
    QCoro::waitFor(f->model->addMeeting(u"Coffee"_s, noon, 30, QString()));
    QCoro::waitFor(f->model->addMeeting(u"Coffee"_s, noon + 60, 30, u"javascript:alert(1)"_s));
    QVERIFY(f->model->manualMeetings().empty());
    QVERIFY(f->model->selectionOverrides().isEmpty());
    QVERIFY(f->keyring.written.isEmpty());
    QVERIFY(!f->model->notice());
    QVERIFY(!f->model->isRefreshing());
}

void ModelChoicesTest::aKeyringLockedAtLoginKeepsItsMeetings()
{
    const Meeting kept = NewMeeting{.title = u"Kept"_s, .start = noon + 300, .duration = 30}.meeting(u"u"_s);
    f->keyring.values[Secrets::manualMeetings] = ManualMeetingText::text({kept}).toUtf8();
    f->keyring.failure = std::make_error_code(std::errc::permission_denied);
    start();
    QVERIFY(f->model->manualMeetings().empty());
    QCoro::waitFor(f->model->addMeeting(u"Coffee"_s, noon + 500, 30, QString()));
    QCOMPARE(f->model->notice(),
             u"Could not save added meetings to Keychain. They may be lost after quitting."_s);
    QVERIFY(f->keyring.written.isEmpty());
    f->keyring.failure = {};
    f->refresh();
    QTRY_COMPARE(
        ManualMeetingText::of(QString::fromUtf8(f->keyring.values[Secrets::manualMeetings])).meetings,
        std::vector<Meeting>({kept, meetingOf(u"Coffee"_s)}));
    QCOMPARE(f->model->scheduledMeetings().size(), 2u);
    QVERIFY(!f->model->notice());
    f->keyring.failure = std::make_error_code(std::errc::permission_denied); // and locked again later
    QCoro::waitFor(f->model->addMeeting(u"Tea"_s, noon + 600, 30, QString()));
    f->keyring.failure = {};
    f->refresh();
    QTRY_VERIFY(f->keyring.values[Secrets::manualMeetings].contains("Tea"));
    QVERIFY(!f->model->notice());
}

void ModelChoicesTest::aDeclinedKeyringIsNotAskedAgainForTenMinutes()
{
    f->keyring.refused = {u"manual-meetings"_s};
    start();
    QCoro::waitFor(f->model->addMeeting(u"Coffee"_s, noon + 5000, 30, QString()));
    QCOMPARE(f->keyring.written, QStringList{u"manual-meetings"_s});
    f->clock.time = noon + 300;
    f->refresh();
    QCOMPARE(f->keyring.written.size(), 1);
    f->keyring.refused.clear();
    f->clock.time = noon + 700;
    f->refresh();
    QTRY_VERIFY(f->keyring.values[Secrets::manualMeetings].contains("Coffee"));
    QTRY_VERIFY(!f->model->notice());
}

void ModelChoicesTest::aDeletedMeetingIsGoneWhileItsAlertIsUp()
{
    start();
    QCoro::waitFor(f->model->addMeeting(u"Coffee"_s, noon + 60, 30, QString()));
    const Meeting meeting = meetingOf(u"Coffee"_s);
    QCOMPARE(f->shown(), meeting.id);
    launch(f->model->deleteManualMeeting(meeting));
    QCOMPARE(f->shown(), QString());
    QVERIFY(f->model->calendarEvents().empty() && f->model->meetings().empty());
    QTRY_VERIFY(f->paths(f->phone).contains(u"/1/receipts/cancel_by_tag/%1.json"_s.arg(meeting.id)));
    QTRY_COMPARE(f->keyring.values[Secrets::manualMeetings], "[]"_qba);
    f->restart();
    QTRY_VERIFY(!f->model->isRefreshing());
    QVERIFY(f->model->calendarEvents().empty());
}

void ModelChoicesTest::aDeletedMeetingDoesNotComeBackFromTheServer()
{
    f->useServer();
    f->say(f->health());
    start();
    QCoro::waitFor(f->model->addMeeting(u"Coffee"_s, noon + 600, 30, QString()));
    const Meeting meeting = meetingOf(u"Coffee"_s);
    f->say(f->health(), {meeting.toJson()});
    QCoro::waitFor(f->model->deleteManualMeeting(meeting));
    f->refresh();
    QVERIFY(f->model->calendarEvents().empty());
}

void ModelChoicesTest::aLinkIsOpenedOrToldOf()
{
    f->store->add(u"a"_s, noon + 1000);
    start();
    f->model->join(meetingOf(u"a"_s));
    QCOMPARE(f->alert.opener.opened, QList<QUrl>{QUrl(u"https://zoom.us/j/1"_s)});
    QVERIFY(!f->model->notice());
    f->alert.opener.answer = false;
    f->model->join(meetingOf(u"a"_s));
    QCOMPARE(f->model->notice(), u"The meeting link could not be opened. Check your default browser."_s);
    QCOMPARE(f->model->noticeKind(), NoticeKind::problem);
    f->model->dismissNotice();
    QVERIFY(!f->model->notice());
}

QTEST_MAIN(ModelChoicesTest)
#include "model_choices_test.moc"
