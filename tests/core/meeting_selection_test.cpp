// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "core/MeetingSelection.h"

#include <QTest>

using namespace Qt::StringLiterals;
using namespace quorvane;
using MeetingSelection::candidates;
using MeetingSelection::includes;

class MeetingSelectionTest final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void theFirstSourceOfAnIdWins();
    void aFreshReadingSupersedesWhatTheServerSavedOfIt();
    void whatCanNoLongerAlertIsDropped();
    void theOrderIsByStartAndThenByCodePoints();
    void meetingsThatSayTheSameAreKeptOnce_data();
    void meetingsThatSayTheSameAreKeptOnce();
    void theUsersChoiceDecidesBeforeTheVideoRule_data();
    void theUsersChoiceDecidesBeforeTheVideoRule();

private:
    static constexpr double now = 1'000'000;

    static Meeting at(double start, const QString &id, const QString &title)
    {
        return {
            .id = id, .title = title, .start = start, .end = start + 600, .source = Meeting::systemSource};
    }

    static QStringList titles(const std::vector<Meeting> &meetings)
    {
        QStringList titles;
        for (const Meeting &meeting : meetings)
            titles.append(meeting.title);
        return titles;
    }
};

void MeetingSelectionTest::theFirstSourceOfAnIdWins()
{
    const auto local = at(now, u"1"_s, u"local"_s);
    const auto manual = at(now, u"1"_s, u"manual"_s);
    const auto saved = at(now, u"1"_s, u"saved"_s);
    QCOMPARE(titles(candidates({local}, {saved}, {manual}, Freshness::stale, now)), QStringList{u"local"_s});
    QCOMPARE(titles(candidates({}, {saved}, {manual}, Freshness::stale, now)), QStringList{u"manual"_s});
    QCOMPARE(titles(candidates({}, {saved}, {}, Freshness::stale, now)), QStringList{u"saved"_s});
    QVERIFY(candidates({}, {}, {}, Freshness::fresh, now).empty());
}

void MeetingSelectionTest::aFreshReadingSupersedesWhatTheServerSavedOfIt()
{
    const auto own = at(now, u"1"_s, u"own"_s);
    auto foreign = at(now, u"2"_s, u"foreign"_s);
    foreign.source = u"elsewhere"_s;
    QCOMPARE(titles(candidates({}, {own, foreign}, {}, Freshness::fresh, now)), QStringList{u"foreign"_s});
    QCOMPARE(titles(candidates({}, {own, foreign}, {}, Freshness::stale, now)),
             (QStringList{u"own"_s, u"foreign"_s}));
}

void MeetingSelectionTest::whatCanNoLongerAlertIsDropped()
{
    auto cancelled = at(now, u"c"_s, u"cancelled"_s);
    cancelled.cancelled = true;
    auto allDay = at(now, u"d"_s, u"all day"_s);
    allDay.allDay = true;
    auto empty = at(now, u"e"_s, u"empty"_s);
    empty.end = empty.start;
    const std::vector<Meeting> local{cancelled, allDay, empty, at(now - 121, u"f"_s, u"begun 121 s ago"_s),
                                     at(now - 120, u"g"_s, u"begun 120 s ago"_s)};
    QCOMPARE(titles(candidates(local, {}, {}, Freshness::stale, now)), QStringList{u"begun 120 s ago"_s});
}

void MeetingSelectionTest::theOrderIsByStartAndThenByCodePoints()
{
    const QString beyondTheBasicPlane = u"\U0001F514"_s;
    const QString privateUse = u"\uE000"_s;
    const std::vector<Meeting> local{at(now + 2, u"a"_s, u"last"_s),
                                     at(now + 1, beyondTheBasicPlane, u"third"_s),
                                     at(now + 1, privateUse, u"second"_s), at(now + 1, u"b"_s, u"first"_s)};
    QCOMPARE(titles(candidates(local, {}, {}, Freshness::stale, now)),
             (QStringList{u"first"_s, u"second"_s, u"third"_s, u"last"_s}));
}

void MeetingSelectionTest::meetingsThatSayTheSameAreKeptOnce_data()
{
    QTest::addColumn<Meeting>("other");
    QTest::addColumn<bool>("same");
    const auto other = [] { return at(now, u"2"_s, u"Stand-up"_s); };
    QTest::newRow("other id") << other() << true;
    auto meeting = other();
    meeting.title = u" \n STAND-UP\r\n"_s;
    QTest::newRow("case and blanks around") << meeting << true;
    meeting = other();
    meeting.start += 0.5;
    meeting.end += 0.5;
    meeting.calendar = u"Other"_s;
    QTest::newRow("same whole second, other calendar") << meeting << true;
    meeting = other();
    meeting.title = u"Stand up"_s;
    QTest::newRow("inner punctuation") << meeting << false;
    meeting = other();
    meeting.joinURL = u"https://zoom.us/j/1"_s;
    QTest::newRow("other link") << meeting << false;
    meeting = other();
    meeting.end += 1;
    QTest::newRow("other end") << meeting << false;
}

void MeetingSelectionTest::meetingsThatSayTheSameAreKeptOnce()
{
    QFETCH(Meeting, other);
    QFETCH(bool, same);
    const auto kept = candidates({other}, {}, {at(now, u"1"_s, u"Stand-up"_s)}, Freshness::stale, now);
    QCOMPARE(kept.size(), std::size_t(same ? 1 : 2));
    QCOMPARE(kept.front().id, u"1"_s);
}

void MeetingSelectionTest::theUsersChoiceDecidesBeforeTheVideoRule_data()
{
    QTest::addColumn<Meeting>("meeting");
    QTest::addColumn<int>("choice"); // -1 none, else the choice
    QTest::addColumn<bool>("included");
    const Meeting plain = at(now, u"1"_s, u"plain"_s);
    Meeting video = plain;
    video.joinURL = u"Zoom: https://zoom.us/j/1"_s;
    Meeting manual = plain;
    manual.source = Meeting::manualSource;
    Meeting cancelled = video;
    cancelled.cancelled = true;
    Meeting allDay = video;
    allDay.allDay = true;
    Meeting otherLink = plain;
    otherLink.joinURL = u"https://example.org/"_s;
    QTest::newRow("plain") << plain << -1 << false;
    QTest::newRow("plain, switched on") << plain << 1 << true;
    QTest::newRow("video") << video << -1 << true;
    QTest::newRow("video, switched off") << video << 0 << false;
    QTest::newRow("other link") << otherLink << -1 << false;
    QTest::newRow("manual") << manual << -1 << true;
    QTest::newRow("manual, switched off") << manual << 0 << false;
    QTest::newRow("cancelled, switched on") << cancelled << 1 << false;
    QTest::newRow("all day, switched on") << allDay << 1 << false;
}

void MeetingSelectionTest::theUsersChoiceDecidesBeforeTheVideoRule()
{
    QFETCH(Meeting, meeting);
    QFETCH(int, choice);
    MeetingChoices choices{{u"another"_s, choice == 0}};
    if (choice >= 0)
        choices.insert(meeting.id, choice == 1);
    QTEST(includes(meeting, choices), "included");
}

QTEST_GUILESS_MAIN(MeetingSelectionTest)
#include "meeting_selection_test.moc"
