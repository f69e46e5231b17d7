// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "tests/model/SoakMeeting.h"
#include "tests/model/SoakPhone.h"
#include "tests/model/SoakServer.h"
#include "tests/model/SoakWeather.h"
#include "tests/support/ModelFixture.h"
#include "tests/support/ProcessFigures.h"

#include <QElapsedTimer>
#include <QTest>
#include <QThreadPool>

#include <algorithm>
#include <memory>

using namespace Qt::StringLiterals;
using namespace quorvane;

/// Days full of meetings in compressed time, with everything around the model failing by turns.
class SoakTest final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void everyMeetingIsShownAndRung();
    void cleanupTestCase();

private:
    using Answer = SoakMeeting::Answer;
    /// What of the day has been seen.
    struct Figures
    {
        int shown = 0;
        int elsewhere = 0;
        int rungByServer = 0;
        int rungByNone = 0;
        int withoutKeyring = 0;
    };

    static constexpr int meetingsPerDay = 400;
    /// Meetings follow each other this fast, in seconds. Second showings come 30 seconds after the first, so
    /// that with steps of 4 no two of either fall on one second.
    static constexpr double step = 4;
    /// Every so many meetings nobody answers, which keeps the screen for this long.
    static constexpr int neverEach = 50;
    static constexpr double neverTakes = 340;
    static constexpr double snoozeLength = 30;
    static constexpr double shownAhead = 60;
    static constexpr double rungAround = 120;
    static constexpr double week = 604'800;

    void plan(int first, int count);
    void liveThroughTheDay();
    void endTheDay();
    void sleepForAWeek();
    void publish();
    void second();
    void answerAtServer();
    void answerOnScreen();
    void note(SoakMeeting &meeting);
    void settle();
    void measure(int done);
    [[nodiscard]] int activity() const;
    [[nodiscard]] bool isBusy() const;
    [[nodiscard]] bool isRung(const SoakMeeting &meeting) const;
    [[nodiscard]] double now() const { return f->clock.time; }
    int chance(int most) { return std::uniform_int_distribution(0, most - 1)(m_random); }

    std::unique_ptr<ModelFixture> f;
    std::unique_ptr<SoakPhone> m_phone;
    std::unique_ptr<SoakServer> m_server;
    std::unique_ptr<SoakWeather> m_weather;
    std::mt19937 m_random;
    int m_meetings = 100;
    std::vector<SoakMeeting> m_day;
    QHash<QString, std::size_t> m_index;
    QHash<qint64, QString> m_due;
    QStringList m_fired;
    double m_roadShutAt = 0;
    int m_calmFor = -1;
    Figures m_figures;
    std::size_t m_memoryAtQuarter = 0;
    qsizetype m_descriptorsAtTenth = 0;
    QElapsedTimer m_duration;
};

void SoakTest::initTestCase()
{
    bool isSet = false;
    m_meetings = qEnvironmentVariableIntValue("QUORVANE_SOAK_MEETINGS", &isSet);
    if (!isSet)
        m_meetings = 100;
    const int seed = qEnvironmentVariableIntValue("QUORVANE_SOAK_SEED");
    qInfo("%d meetings, QUORVANE_SOAK_SEED=%d", m_meetings, seed);
    m_random.seed(static_cast<std::mt19937::result_type>(seed));
    m_duration.start();
    f = std::make_unique<ModelFixture>();
    m_phone = std::make_unique<SoakPhone>([this] { return now(); });
    m_server = std::make_unique<SoakServer>();
    f->phoneService = m_phone->peer.url();
    f->pinnedCertificate = AnsweringPeer::certificate();
    f->addSetting(u"serverURL=%1"_s.arg(m_server->peer.url().toString()));
    f->addSetting(u"uploadMacSnapshot=true"_s);
    f->keyring.values = {{Secrets::pushoverUser, QByteArray(30, 'u')},
                         {Secrets::pushoverToken, QByteArray(30, 't')},
                         {Secrets::serverToken, QByteArray(32, 's')}};
    m_weather = std::make_unique<SoakWeather>(*f, *m_phone, *m_server, m_random);
    m_weather->clear();
    f->start();
    connect(f->model.get(), &AppModel::alertShown, this, [this](const QString &id) { m_fired.append(id); });
}

void SoakTest::cleanupTestCase()
{
    f.reset();
}

void SoakTest::everyMeetingIsShownAndRung()
{
    for (int done = 0; done < m_meetings; done += meetingsPerDay) {
        if (done > 0)
            sleepForAWeek();
        plan(done, std::min(meetingsPerDay, m_meetings - done));
        liveThroughTheDay();
        if (QTest::currentTestFailed())
            return;
        measure(std::min(done + meetingsPerDay, m_meetings));
    }
    settle();
    QTRY_VERIFY(ProcessFigures::descriptors() <= m_descriptorsAtTenth);
    qInfo("shown %d times; %d answered on the phone before; %d messages, %d rung by the server; answered "
          "before any road was open: %d; while the keyring was shut: %d; %lld descriptors; %.0f s",
          m_figures.shown, m_figures.elsewhere, m_phone->taken, m_figures.rungByServer, m_figures.rungByNone,
          m_figures.withoutKeyring, ProcessFigures::descriptors(),
          static_cast<double>(m_duration.elapsed()) / 1000);
    QVERIFY(m_figures.elsewhere > 0 && m_phone->taken > 0 && m_figures.rungByServer > 0);
}

void SoakTest::plan(int first, int count)
{
    m_day.clear();
    m_index.clear();
    double start = now() + 400;
    for (int number = 1; number <= count; ++number) {
        const bool isNever = number % neverEach == 0;
        start += isNever ? snoozeLength + 3 * step - 2 : step;
        const QString uid = u"meeting %1"_s.arg(first + number);
        static constexpr std::array answers{Answer::atOnce,      Answer::atOnce,  Answer::afterSnooze,
                                            Answer::afterSnooze, Answer::onPhone, Answer::atServer};
        const Answer answer =
            isNever ? Answer::never : answers[static_cast<std::size_t>(chance(answers.size()))];
        const QString id = Meeting::identity(uid, start);
        m_index.insert(id, m_day.size());
        m_due.insert(static_cast<qint64>(start - shownAhead), id);
        m_day.push_back({.uid = uid,
                         .id = id,
                         .start = start,
                         .answer = answer,
                         .isInSecondSource = chance(4) == 0,
                         .atServerAt = start - 110 + chance(40)});
        if (answer == Answer::onPhone)
            m_phone->answersAfter.insert(id, 1 + chance(40));
        if (isNever)
            start += neverTakes;
    }
}

void SoakTest::liveThroughTheDay()
{
    publish();
    const double end = m_day.back().start + neverTakes;
    while (now() < end && !QTest::currentTestFailed())
        second();
    m_weather->clear();
    for (int calm = 0; calm < 100 && !QTest::currentTestFailed(); ++calm)
        second();
    if (!QTest::currentTestFailed())
        endTheDay();
}

void SoakTest::endTheDay()
{
    for (const SoakMeeting &meeting : m_day) {
        const AlertRecord record = f->model->records().value(meeting.id);
        QVERIFY2(record.acknowledged == (meeting.answer != Answer::never), qPrintable(meeting.uid));
        m_figures.rungByServer += meeting.isRungByServer ? 1 : 0;
        m_figures.rungByNone += isRung(meeting) ? 0 : 1;
        m_figures.withoutKeyring += meeting.wasKeyringShut ? 1 : 0;
        const SoakPhone::Ringing rung = m_phone->ringing.value(meeting.id);
        if (record.acknowledged && rung.lastMessage > 0 && !meeting.wasKeyringShut)
            QVERIFY2(rung.lastCancellation > rung.lastMessage, qPrintable(meeting.uid));
    }
    const Result<AlertRecords> kept = AcknowledgmentLedger(f->ledgerFile()).load();
    QVERIFY(kept);
    QCOMPARE(*kept, f->model->records());
    QCOMPARE(f->preferences.pendingAcks(), QStringList());
    QVERIFY(m_due.isEmpty());
}

void SoakTest::sleepForAWeek()
{
    m_phone->forget();
    m_server->forget();
    m_weather->clear();
    f->clock.time += week;
    Q_EMIT f->wakes.woke();
    settle();
}

/// The calendars as they are now: what begins within the next quarter of an hour.
void SoakTest::publish()
{
    f->store->reading.events.clear();
    FantasticalSnapshot snapshot{.calendars = {{u"second"_s, u"Second"_s, u"Account"_s}},
                                 .checkedAt = now(),
                                 .cacheModifiedAt = now()};
    for (std::size_t index = 0; index < m_day.size(); ++index) {
        const SoakMeeting &meeting = m_day[index];
        const bool isLost =
            m_weather->isDropping() && index % 3 == 0 && meeting.start > now() + SoakWeather::dropFrom;
        if (isLost || meeting.start < now() - 200 || meeting.start > now() + 900)
            continue;
        if (meeting.isInSecondSource)
            snapshot.events.push_back(meeting.asMeeting());
        else
            f->store->add(meeting.uid, meeting.start);
    }
    f->fantastical->answer(snapshot);
}

void SoakTest::second()
{
    f->clock.time += 1;
    m_weather->step();
    if (static_cast<qint64>(now()) % 10 == 0)
        publish();
    answerAtServer();
    const QString due = m_due.take(static_cast<qint64>(now()));
    const bool isAnswered = f->model->records().value(due).acknowledged;
    m_figures.elsewhere += isAnswered ? 1 : 0;
    const QStringList expected = due.isEmpty() || isAnswered ? QStringList() : QStringList{due};
    m_fired.clear();
    Q_EMIT f->ticks.tick();
    if (chance(2) == 0)
        answerOnScreen(); // before the network has said a word
    settle();
    answerOnScreen();
    settle();
    m_figures.shown += static_cast<int>(m_fired.size());
    QCOMPARE(m_fired, expected);
    QVERIFY(!f->model->records().value(f->shown()).acknowledged);

    const bool isServerInCharge = f->model->localMeetings().empty() && !f->model->scheduledMeetings().empty();
    if (isServerInCharge || !m_weather->isPhoneRoadOpen())
        m_roadShutAt = now();
    for (SoakMeeting &meeting : m_day) {
        if (std::abs(now() - meeting.start) > rungAround + 1)
            continue;
        if (isServerInCharge && meeting.acknowledgedAt == 0 && m_server->rings(meeting.id))
            meeting.isRungByServer = true;
        note(meeting);
    }
}

void SoakTest::note(SoakMeeting &meeting)
{
    meeting.wasKeyringShut = meeting.wasKeyringShut || m_weather->isKeyringShut();
    if (meeting.acknowledgedAt == 0 && f->model->records().value(meeting.id).acknowledged)
        meeting.acknowledgedAt = now();
    if (meeting.acknowledgedAt != 0)
        QVERIFY2(m_phone->ringing.value(meeting.id).lastAt <= meeting.acknowledgedAt,
                 qPrintable(u"%1: a message %2 s after the answer, %3"_s.arg(meeting.uid)
                                .arg(m_phone->ringing.value(meeting.id).lastAt - meeting.acknowledgedAt)
                                .arg(m_weather->told())));
    else if (now() > meeting.start + rungAround)
        QVERIFY2(isRung(meeting), qPrintable(meeting.uid));
}

bool SoakTest::isRung(const SoakMeeting &meeting) const
{
    return meeting.isRungByServer || m_phone->ringing.value(meeting.id).firstAt > 0;
}

void SoakTest::answerAtServer()
{
    for (const SoakMeeting &meeting : m_day) {
        if (meeting.answer == Answer::atServer && meeting.atServerAt == now() && meeting.isRungByServer)
            m_server->answered.insert(meeting.id);
    }
}

void SoakTest::answerOnScreen()
{
    const QString shown = f->shown();
    if (shown.isEmpty())
        return;
    QVERIFY(m_index.contains(shown));
    SoakMeeting &meeting = m_day[m_index[shown]];
    if (meeting.answer == Answer::never)
        return;
    if (meeting.answer == Answer::afterSnooze && !meeting.isSnoozed) {
        meeting.isSnoozed = true;
        m_due.insert(static_cast<qint64>(now() + snoozeLength), shown);
        const auto &scheduled = f->model->scheduledMeetings();
        f->model->snooze(*std::ranges::find(scheduled, shown, &Meeting::id));
        return;
    }
    // Longer than a failed message takes to be repeated.
    if (now() - std::max(m_roadShutAt, meeting.start - rungAround) > 40)
        QVERIFY2(isRung(meeting), qPrintable(meeting.uid));
    launch(f->model->acknowledge(shown));
}

/// Network time is real while the clock stands: gives what has begun the time to end, as far as it is not
/// held up on purpose.
void SoakTest::settle()
{
    constexpr int calm = 2;
    constexpr int longest = 5000;
    QElapsedTimer whole;
    QElapsedTimer quiet;
    QTimer alarm;
    const auto turn = [](QEventLoop::ProcessEventsFlags flags) {
        QCoreApplication::processEvents(flags);
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    };
    turn(QEventLoop::AllEvents);
    whole.start();
    alarm.start(1);
    for (quiet.start(); isBusy() || (m_calmFor != activity() && quiet.elapsed() < calm);) {
        QVERIFY2(whole.elapsed() < longest, "what has begun does not end");
        if (isBusy())
            quiet.restart();
        turn(QEventLoop::WaitForMoreEvents);
    }
    m_calmFor = activity();
}

bool SoakTest::isBusy() const
{
    return ProcessFigures::requests() > m_phone->peer.held() ||
           QThreadPool::globalInstance()->activeThreadCount() > 0 || // which decodes what has come
           (f->model->isRefreshing() && !m_weather->isRefreshHeld());
}

int SoakTest::activity() const
{
    return f->keyring.reads + m_phone->peer.requests() + m_server->peer.requests() + f->fantastical->runs() +
           f->store->listings;
}

void SoakTest::measure(int done)
{
#ifndef __SANITIZE_ADDRESS__
    const std::size_t used = ProcessFigures::memory();
    if (m_memoryAtQuarter == 0 && done >= m_meetings / 4)
        m_memoryAtQuarter = used;
    qInfo("%d meetings: %.1f MB, %lld descriptors", done, static_cast<double>(used) / 1e6,
          ProcessFigures::descriptors());
    if (m_memoryAtQuarter != 0)
        QVERIFY2(used < m_memoryAtQuarter + 16'000'000, "memory grows");
#endif
    if (m_descriptorsAtTenth == 0 && done >= m_meetings / 10)
        m_descriptorsAtTenth = ProcessFigures::descriptors();
}

QTEST_MAIN(SoakTest)
#include "soak_test.moc"
