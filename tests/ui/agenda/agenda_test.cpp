// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "tests/ui/agenda/AgendaScene.h"

#include "ui/agenda/Agenda.h"

#include <QAbstractItemModelTester>
#include <QRandomGenerator>
#include <QSignalSpy>
#include <QTest>

using namespace Qt::StringLiterals;
using namespace quorvane;

/// The presenters over a real model.
class AgendaTest final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();

    void rowsFollowAnyChangeInPlace();
    void aRefreshThatBringsNothingNewChangesNothing();
    void timeAloneChangesOnlyWhatItMust();
    void theSwitchOfARowDecidesOnItsAlert();
    void aMeetingIsDeletedOnlyAfterTheQuestion();
    void theHeroStaysWithAMeetingSwitchedOffThere();
    void joiningOpensTheLink();
    void thePauseIsToldAndEnded();
    void thePhonesHealthIsTold_data();
    void thePhonesHealthIsTold();
    void aFailingSourceGetsAWord();
    void aNewUserIsLedToTheFirstAlert();
    void withCalendarsAndNoMeetingTheAgendaSaysSo();
    void whoeverHadAlertsGetsTheListBackAtOnce();
    void beforeTheFirstReadingNothingIsClaimed();

private:
    [[nodiscard]] QStringList titles() const;

    std::unique_ptr<ModelFixture> f;
    std::unique_ptr<AgendaScene> scene;
    std::unique_ptr<Agenda> agenda;
};

void AgendaTest::init()
{
    agenda.reset();
    f = std::make_unique<ModelFixture>();
    scene = std::make_unique<AgendaScene>();
    scene->addMorning();
    scene->show(*f);
    agenda = std::make_unique<Agenda>(*f->model);
}

QStringList AgendaTest::titles() const
{
    QStringList result;
    for (int row = 0; row < agenda->meetings()->count(); ++row)
        result.append(agenda->meetings()->at(row).title);
    return result;
}

void AgendaTest::rowsFollowAnyChangeInPlace()
{
    MeetingRows *rows = agenda->meetings();
    const QAbstractItemModelTester tester(rows, QAbstractItemModelTester::FailureReportingMode::QtTest);
    const QSignalSpy resets(rows, &QAbstractItemModel::modelReset);
    QRandomGenerator random(7);
    for (int round = 0; round < 100; ++round) {
        QHash<QString, QPersistentModelIndex> kept;
        for (int row = 0; row < rows->count(); ++row)
            kept.insert(rows->at(row).id(), rows->index(row));

        std::vector<Meeting> events;
        for (int number = 0; number < 30; ++number) {
            if (random.bounded(4) == 0)
                continue;
            const double start = AgendaScene::morning() + 60 * random.bounded(3 * 24 * 60);
            events.push_back({.id = QString::number(number),
                              .title = QString::number(number),
                              .start = start,
                              .end = start + 1800});
        }
        std::ranges::sort(events, {}, &Meeting::start);
        scene->content.calendarEvents = events;
        scene->show(*f);

        QCOMPARE(rows->count(), static_cast<int>(events.size()));
        for (int row = 0; row < rows->count(); ++row) {
            const MeetingRow &shown = rows->at(row);
            QCOMPARE(shown.meeting, events[static_cast<std::size_t>(row)]);
            if (const auto old = kept.constFind(shown.id()); old != kept.cend())
                QCOMPARE(old->row(), row);
        }
    }
    QCOMPARE(resets.size(), 0);
}

void AgendaTest::aRefreshThatBringsNothingNewChangesNothing()
{
    const QSignalSpy data(agenda->meetings(), &QAbstractItemModel::dataChanged);
    const QSignalSpy sources(agenda->sources(), &QAbstractItemModel::dataChanged);
    const QSignalSpy hero(agenda->next(), &NextMeeting::faceChanged);
    scene->show(*f);
    AgendaScene::passTo(*f, AgendaScene::morning() + 1);
    QCOMPARE(data.size() + sources.size() + hero.size(), 0);
}

void AgendaTest::timeAloneChangesOnlyWhatItMust()
{
    const QSignalSpy data(agenda->meetings(), &QAbstractItemModel::dataChanged);
    const QSignalSpy hero(agenda->next(), &NextMeeting::faceChanged);
    for (int second = 1; second <= 60; ++second)
        AgendaScene::passTo(*f, AgendaScene::morning() + second);
    QVERIFY(hero.size() <= 13);
    QCOMPARE(agenda->next()->face().countdown, u"In 11 min"_s);
    QCOMPARE(data.size(), 0);

    AgendaScene::passTo(*f, AgendaScene::at(0, 10, 0));
    QCOMPARE(titles().front(), u"Weekly design review"_s);
    QVERIFY(agenda->meetings()->at(0).isNow && agenda->meetings()->at(0).isFirstOfDay);
    QCOMPARE(agenda->next()->face().countdown, u"Starting now"_s);
    QVERIFY(agenda->next()->face().isStarted);

    AgendaScene::passTo(*f, AgendaScene::at(1, 0, 1));
    QCOMPARE(agenda->meetings()->at(0).dayTitle, u"Today"_s);
    // The clock is set back.
    AgendaScene::passTo(*f, AgendaScene::at(0, 9, 0));
    QCOMPARE(titles().size(), 7);
}

void AgendaTest::theSwitchOfARowDecidesOnItsAlert()
{
    MeetingRows *rows = agenda->meetings();
    const QString id = rows->at(2).id();
    QVERIFY(rows->at(2).alerts);
    rows->toggleAlert(id);
    QTRY_VERIFY(!rows->at(2).alerts);
    QCOMPARE(f->model->selectionOverrides().value(id, true), false);
    rows->toggleAlert(id);
    QTRY_VERIFY(rows->at(2).alerts);
    rows->toggleAlert(u"gone"_s);
    QVERIFY(!f->model->selectionOverrides().contains(u"gone"_s));
}

void AgendaTest::aMeetingIsDeletedOnlyAfterTheQuestion()
{
    MeetingRows *rows = agenda->meetings();
    const MeetingRow dentist = rows->at(3);
    QVERIFY(dentist.canDelete && !rows->at(2).canDelete);
    rows->deleteAsked();
    rows->askToDelete(rows->at(2).id());
    QVERIFY(!rows->at(2).asksDelete);
    rows->askToDelete(dentist.id());
    QVERIFY(rows->at(3).asksDelete);
    rows->keep();
    rows->deleteAsked();
    QVERIFY(!rows->at(3).asksDelete);
    QCOMPARE(rows->count(), 7);

    rows->askToDelete(dentist.id());
    rows->deleteAsked();
    QTRY_VERIFY(!titles().contains(dentist.title));
    QVERIFY(f->model->manualMeetings().empty());
}

void AgendaTest::theHeroStaysWithAMeetingSwitchedOffThere()
{
    NextMeeting *next = agenda->next();
    next->toggleAlert();
    QTRY_VERIFY(!next->face().alerts);
    QCOMPARE(next->face().title, u"Weekly design review"_s);
    QCOMPARE(next->face().chip, u"Alert off"_s);
    next->toggleAlert();
    QTRY_VERIFY(next->face().isLit);

    next->toggleAlert();
    AgendaScene::passTo(*f, AgendaScene::morning() + NextMeeting::keepTime);
    QTRY_COMPARE(next->face().title, u"Interview: Staff engineer, panel two"_s);
}

void AgendaTest::joiningOpensTheLink()
{
    agenda.reset();
    f = std::make_unique<ModelFixture>();
    f->store->add(u"soon"_s, ModelFixture::noon + 600);
    f->store->add(u"later"_s, ModelFixture::noon + 7200, u"https://meet.google.com/abc"_s);
    f->start();
    agenda = std::make_unique<Agenda>(*f->model);
    QTRY_COMPARE(agenda->meetings()->count(), 2);
    agenda->next()->join();
    agenda->meetings()->join(agenda->meetings()->at(1).id());
    agenda->meetings()->join(u"gone"_s);
    QCOMPARE(f->alert.opener.opened,
             QList<QUrl>({QUrl(u"https://zoom.us/j/1"_s), QUrl(u"https://meet.google.com/abc"_s)}));
    // The model's own tick reaches the agenda.
    f->tickAt(ModelFixture::noon + 61);
    QCOMPARE(agenda->next()->face().countdown, u"In 9 min"_s);
}

void AgendaTest::thePauseIsToldAndEnded()
{
    Protection *protection = agenda->protection();
    QCOMPARE(protection->screenText(), u"On · 1 display"_s);
    protection->togglePause();
    QCOMPARE(protection->screenText(), u"Paused until 9:53"_s);
    QCOMPARE(agenda->next()->face().chip, u"Alerts paused until 9:53"_s);
    QVERIFY(protection->isPaused() && !agenda->next()->face().isLit);
    protection->togglePause();
    QVERIFY(!protection->isPaused() && agenda->next()->face().isLit);
}

void AgendaTest::thePhonesHealthIsTold_data()
{
    QTest::addColumn<int>("state");
    QTest::addColumn<QString>("text");
    using State = PhoneHealth::State;
    QTest::newRow("unknown") << int(State::unknown) << u"Waiting for the keyring"_s;
    QTest::newRow("not set up") << int(State::notSetUp) << u"Not set up"_s;
    QTest::newRow("ready") << int(State::ready) << u"Ready · tested 9:41"_s;
    QTest::newRow("failed") << int(State::failed) << u"Last message failed"_s;
}

void AgendaTest::thePhonesHealthIsTold()
{
    QFETCH(int, state);
    scene->content.phoneHealth.state = static_cast<PhoneHealth::State>(state);
    scene->show(*f);
    QTEST(agenda->protection()->phoneText(), "text");
    QCOMPARE(agenda->protection()->hasPhoneFailed(), state == int(PhoneHealth::State::failed));
    QVERIFY(agenda->protection()->phoneDetail().startsWith(u"Local only."));
}

void AgendaTest::aFailingSourceGetsAWord()
{
    SourceRows *sources = agenda->sources();
    const auto row = [sources](int number) {
        return sources->index(number).data(SourceRows::sourceRole).value<SourceRow>();
    };
    QCOMPARE(row(0).state + u'|' + row(0).ago, u"Up to date|1 min ago"_s);
    QVERIFY(!sources->needsWord());

    scene->content.sources[1].state = SourceHealth::State::failing;
    scene->content.sources.push_back({.account = u"Fantastical"_s, .isFantastical = true});
    scene->content.fantasticalStatus = u"Connecting Fantastical…"_s;
    scene->show(*f);
    QCOMPARE(row(1).state, u"Not answering"_s);
    QVERIFY(row(1).isFailing && sources->needsWord());
    QCOMPARE(row(3).detail + u'|' + row(3).state + u'|' + row(3).ago, u"Connecting Fantastical…|Waiting|"_s);

    scene->content.sources.resize(1);
    scene->show(*f);
    QCOMPARE(sources->count(), 1);
    QVERIFY(!sources->needsWord());
}

void AgendaTest::aNewUserIsLedToTheFirstAlert()
{
    scene->content.calendarEvents.clear();
    const auto calendars = std::exchange(scene->content.calendars, {});
    scene->show(*f);
    EmptyAgenda *empty = agenda->empty();
    QCOMPARE(empty->face().title, u"Nothing on the horizon"_s);
    QVERIFY(empty->face().step == 1 && empty->face().offersConnect && !empty->face().offersPreview);

    scene->content.calendars = calendars;
    scene->show(*f);
    QCOMPARE(empty->face().calendarStep, u"5 calendars connected"_s);
    QCOMPARE(empty->face().step, 2);

    scene->addMorning();
    scene->show(*f);
    QCOMPARE(empty->face().meetingStep, u"7 meetings found"_s);
    QVERIFY(empty->face().step == 3 && empty->face().isShown);

    empty->previewAlert();
    QVERIFY(!empty->face().isShown);
    QVERIFY(!f->shown().isEmpty());
}

void AgendaTest::withCalendarsAndNoMeetingTheAgendaSaysSo()
{
    scene->content.calendarEvents.clear();
    scene->content.records.insert(u"an earlier one"_s, AlertRecord{});
    scene->show(*f);
    QCOMPARE(agenda->empty()->face().title, u"No meetings in the next 14 days"_s);
    QCOMPARE(agenda->empty()->face().step, 0);
    QVERIFY(agenda->empty()->face().offersAdd && !agenda->empty()->face().offersConnect);
    QVERIFY(!agenda->next()->face().exists);

    scene->content.sources[0].state = SourceHealth::State::failing;
    scene->content.status = u"A calendar did not answer."_s;
    scene->show(*f);
    QCOMPARE(agenda->empty()->face().text, scene->content.status);
}

void AgendaTest::whoeverHadAlertsGetsTheListBackAtOnce()
{
    scene->content.records.insert(u"an earlier one"_s, AlertRecord{});
    scene->content.calendarEvents.clear();
    const auto calendars = std::exchange(scene->content.calendars, {});
    scene->show(*f);
    QCOMPARE(agenda->empty()->face().step, 1);
    scene->content.calendars = calendars;
    scene->addMorning();
    scene->show(*f);
    QVERIFY(!agenda->empty()->face().isShown);
    // The last meeting ends, and nothing has been read since.
    AgendaScene::passTo(*f, AgendaScene::at(2, 16, 30));
    QVERIFY(agenda->empty()->face().isShown && agenda->meetings()->count() == 0);
}

void AgendaTest::beforeTheFirstReadingNothingIsClaimed()
{
    agenda.reset();
    f = std::make_unique<ModelFixture>();
    f->store->hangs = true;
    f->start();
    agenda = std::make_unique<Agenda>(*f->model);
    QCOMPARE(agenda->empty()->face().title, u"Reading your calendars…"_s);
    f->store->hangs = false;
    Q_EMIT f->store->released();
    QTRY_COMPARE(agenda->empty()->face().step, 2);
}

QTEST_MAIN(AgendaTest)
#include "agenda_test.moc"
