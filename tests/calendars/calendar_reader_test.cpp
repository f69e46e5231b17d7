// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "calendars/CalendarError.h"
#include "calendars/CalendarReader.h"
#include "calendars/records/EventMeetings.h"
#include "tests/support/ScriptedStore.h"

#include <QTest>

using namespace Qt::StringLiterals;
using namespace quorvane;

class CalendarReaderTest final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void onlyTimedEventsOfTheUserBecomeMeetings_data();
    void onlyTimedEventsOfTheUserBecomeMeetings();
    void anEventBecomesAMeeting();
    void theJoinLinkComesFromUrlThenLocationThenNotes_data();
    void theJoinLinkComesFromUrlThenLocationThenNotes();
    void oneOccurrenceIsListedOnceAndEqualStartsKeepTheirOrder();
    void calendarsAreSortedByNameWithoutCase();
    void excludedCalendarsAreNotAsked();
    void withoutAnAnswerThereIsNoAccess();
    void aFailingStoreKeepsItsMeetings_data();
    void aFailingStoreKeepsItsMeetings();
    void aFailingCalendarKeepsItsMeetings();
    void aHangingStoreHoldsUpNoOther();
    void everyStoreTellsHowItsAccountsAre();

private:
    static constexpr double now = 1'800'000'000;

    static CalendarEvent event() { return {.externalIdentifier = u"uid"_s, .start = now, .end = now + 60}; }

    QStringList read(const QStringList &excluded = {})
    {
        QCoro::waitFor(reader->read(now, excluded));
        QStringList titles;
        for (const Meeting &meeting : reader->events(now, excluded))
            titles.append(meeting.title);
        return titles;
    }

    ScriptedStore *first = nullptr;
    ScriptedStore *second = nullptr;
    std::unique_ptr<CalendarReader> reader;
};

void CalendarReaderTest::init()
{
    auto one = std::make_unique<ScriptedStore>();
    auto two = std::make_unique<ScriptedStore>();
    first = one.get();
    second = two.get();
    second->options.clear();
    std::vector<std::unique_ptr<CalendarStore>> stores;
    stores.push_back(std::move(one));
    stores.push_back(std::move(two));
    reader = std::make_unique<CalendarReader>(std::move(stores));
}

void CalendarReaderTest::onlyTimedEventsOfTheUserBecomeMeetings_data()
{
    QTest::addColumn<CalendarEvent>("event");
    QTest::addColumn<bool>("kept");
    const auto row = [](const char *name, bool kept, auto change) {
        CalendarEvent changed = event();
        change(changed);
        QTest::newRow(name) << changed << kept;
    };
    row("plain", true, [](auto &) {});
    row("began 119 s ago", true, [](auto &e) { e.start = now - 119; });
    row("began 120 s ago", true, [](auto &e) { e.start = now - 120; });
    row("began 121 s ago", false, [](auto &e) { e.start = now - 121; });
    row("all day", false, [](auto &e) { e.allDay = true; });
    row("cancelled", false, [](auto &e) { e.status = EventStatus::cancelled; });
    row("tentative", true, [](auto &e) { e.status = EventStatus::tentative; });
    row("no length", false, [](auto &e) { e.end = e.start; });
    row("declined", false, [](auto &e) { e.declinedByUser = true; });
}

void CalendarReaderTest::onlyTimedEventsOfTheUserBecomeMeetings()
{
    QFETCH(CalendarEvent, event);
    QTEST(!EventMeetings::meetings({event}, now).empty(), "kept");
}

void CalendarReaderTest::anEventBecomesAMeeting()
{
    CalendarEvent local = event();
    local.externalIdentifier.clear();
    local.identifier = u"local"_s;
    local.calendar = u"Work"_s;
    local.url = u"https://example.org/"_s;
    const Meeting expected{.id = Meeting::identity(u"local"_s, now),
                           .title = u"Meeting"_s,
                           .start = now,
                           .end = now + 60,
                           .calendar = u"Work"_s,
                           .source = u"mac"_s};
    QCOMPARE(EventMeetings::meetings({local}, now).front(), expected);
    local.title = u"  "_s;
    QCOMPARE(EventMeetings::meetings({local}, now).front().title, u"Meeting"_s);
}

void CalendarReaderTest::theJoinLinkComesFromUrlThenLocationThenNotes_data()
{
    QTest::addColumn<QString>("url");
    QTest::addColumn<QString>("location");
    QTest::addColumn<QString>("notes");
    QTest::addColumn<QString>("link");
    const QString a = u"https://zoom.us/j/1"_s;
    const QString b = u"https://zoom.us/j/2"_s;
    const QString other = u"https://example.org/"_s;
    QTest::newRow("url") << a << b << other << a;
    QTest::newRow("location") << other << u"Room 5, "_s + b << a << b;
    QTest::newRow("notes") << other << u"Room 5"_s << u"Dial in: "_s + a << a;
    QTest::newRow("none") << other << QString() << QString() << QString();
    QTest::newRow("texts do not run together")
        << u"https://zoom.us"_s << u"/j/1"_s << QString() << u"https://zoom.us"_s;
}

void CalendarReaderTest::theJoinLinkComesFromUrlThenLocationThenNotes()
{
    QFETCH(QString, url);
    QFETCH(QString, location);
    QFETCH(QString, notes);
    CalendarEvent withLinks = event();
    withLinks.url = url;
    withLinks.location = location;
    withLinks.notes = notes;
    const auto meetings = EventMeetings::meetings({withLinks}, now);
    QTEST(meetings.front().joinURL.value_or(QString()), "link");
}

void CalendarReaderTest::oneOccurrenceIsListedOnceAndEqualStartsKeepTheirOrder()
{
    first->add(u"late"_s, now + 20);
    first->add(u"b"_s, now + 10);
    first->add(u"a"_s, now + 10);
    first->add(u"late"_s, now + 20);
    first->add(u"late"_s, now + 30);
    QCOMPARE(read(), (QStringList{u"b"_s, u"a"_s, u"late"_s, u"late"_s}));
}

void CalendarReaderTest::calendarsAreSortedByNameWithoutCase()
{
    first->options = {{u"1"_s, u"beta"_s, u"A"_s}, {u"2"_s, u"Gamma"_s, u"A"_s}};
    second->options = {{u"3"_s, u"Alpha"_s, u"B"_s}};
    QStringList names;
    QCoro::waitFor(reader->read(now, {}));
    for (const CalendarOption &option : reader->calendars())
        names.append(option.name);
    QCOMPARE(names, (QStringList{u"Alpha"_s, u"beta"_s, u"Gamma"_s}));
}

void CalendarReaderTest::excludedCalendarsAreNotAsked()
{
    first->options = {{u"1"_s, u"One"_s, u"A"_s}, {u"2"_s, u"Two"_s, u"A"_s}};
    first->add(u"held"_s, now);
    QCOMPARE(read(), QStringList{u"held"_s});
    QCOMPARE(first->lastFrom, now - 120);
    QCOMPARE(first->lastTo, now + 1'209'600);
    QCOMPARE(read({u"1"_s}), QStringList());
    QCOMPARE(first->lastCalendars, QStringList{u"2"_s});
    const int queries = first->queries;
    QCOMPARE(read({u"1"_s, u"2"_s}), QStringList());
    QCOMPARE(first->queries, queries);
}

void CalendarReaderTest::withoutAnAnswerThereIsNoAccess()
{
    QCOMPARE(reader->authorizationStatus(), AuthorizationStatus::notDetermined);
    first->failure = CalendarError::unavailable;
    second->failure = CalendarError::unavailable;
    QCOMPARE(QCoro::waitFor(reader->requestAccess()).value(), false);
    QCOMPARE(reader->authorizationStatus(), AuthorizationStatus::denied);
    QVERIFY(reader->problems().empty());
    second->failure = CalendarError::timedOut;
    QVERIFY(QCoro::waitFor(reader->requestAccess()).error() == CalendarError::timedOut);
    second->failure = {};
    QCOMPARE(QCoro::waitFor(reader->requestAccess()).value(), true);
    QCOMPARE(reader->authorizationStatus(), AuthorizationStatus::fullAccess);
}

void CalendarReaderTest::aFailingStoreKeepsItsMeetings_data()
{
    QTest::addColumn<bool>("listingFails");
    QTest::newRow("no calendars") << true;
    QTest::newRow("no events") << false;
}

void CalendarReaderTest::aFailingStoreKeepsItsMeetings()
{
    QFETCH(bool, listingFails);
    first->add(u"held"_s, now);
    QCOMPARE(read(), QStringList{u"held"_s});
    (listingFails ? first->failure : first->eventFailure) = CalendarError::timedOut;
    first->reading.events.clear();
    QCOMPARE(read(), QStringList{u"held"_s});
    QCOMPARE(reader->problems(), (std::vector<StoreProblem>{{u"Test store"_s, CalendarError::timedOut}}));
    first->failure = {};
    first->eventFailure = {};
    QCOMPARE(read(), QStringList());
    QVERIFY(reader->problems().empty());
}

void CalendarReaderTest::aFailingCalendarKeepsItsMeetings()
{
    first->options = {{u"1"_s, u"One"_s, u"A"_s}, {u"2"_s, u"Two"_s, u"A"_s}};
    first->add(u"of the first"_s, now);
    first->reading.events.push_back({.externalIdentifier = u"x"_s,
                                     .title = u"of the second"_s,
                                     .start = now + 1,
                                     .end = now + 60,
                                     .calendarId = u"2"_s});
    QCOMPARE(read(), (QStringList{u"of the first"_s, u"of the second"_s}));
    first->reading = {.events = {}, .unreadableCalendars = {u"2"_s}};
    QCOMPARE(read(), QStringList{u"of the second"_s});
    QCOMPARE(reader->problems().size(), std::size_t(1));
    first->reading = {};
    QCOMPARE(read(), QStringList());
}

void CalendarReaderTest::aHangingStoreHoldsUpNoOther()
{
    first->hangs = true;
    second->options = {{u"2"_s, u"Two"_s, u"B"_s}};
    second->add(u"of the second"_s, now);
    auto reading = reader->read(now, {});
    QTRY_COMPARE(reader->events(now, {}).size(), std::size_t(1));
    QVERIFY(!reading.isReady());
    second->add(u"later"_s, now + 1);
    QCoro::waitFor(reader->read(now, {}));
    QCOMPARE(reader->events(now, {}).size(), std::size_t(2));
    QCOMPARE(first->listings, 1);
    first->hangs = false;
    first->add(u"of the first"_s, now);
    Q_EMIT first->released();
    QCoro::waitFor(std::move(reading));
    QCOMPARE(reader->events(now, {}).size(), std::size_t(3));
}

void CalendarReaderTest::everyStoreTellsHowItsAccountsAre()
{
    first->options = {{u"a"_s, u"A"_s, u"One"_s}, {u"b"_s, u"B"_s, u"Two"_s}, {u"c"_s, u"C"_s, u"Two"_s}};
    second->failure = CalendarError::unavailable;
    read();
    first->reading.unreadableCalendars = {u"b"_s};
    QCoro::waitFor(reader->read(now + 60, {}));
    StoreState state = reader->stores().at(0);
    QCOMPARE(state.unreadableCalendars, QStringList(u"b"_s));
    QVERIFY(state.problem && !state.isBusy && !state.isAbsent);
    QCOMPARE(state.lastRead(u"One"_s), now + 60);
    QCOMPARE(state.lastRead(u"Two"_s), now);
    QVERIFY(reader->stores().at(1).isAbsent);
    first->failure = CalendarError::timedOut;
    QCoro::waitFor(reader->read(now + 120, {}));
    state = reader->stores().at(0);
    QVERIFY(state.problem == CalendarError::timedOut && state.unreadableCalendars.isEmpty());
    QCOMPARE(state.calendars.size(), 3u);
    QCOMPARE(state.lastRead(u"One"_s), now + 60);
    first->failure.clear();
    first->reading.unreadableCalendars.clear();
    QCoro::waitFor(reader->read(now + 180, {u"b"_s})); // an account counts without what is switched off in it
    QCOMPARE(reader->stores().at(0).lastRead(u"Two"_s), now + 180);
}

QTEST_GUILESS_MAIN(CalendarReaderTest)
#include "calendar_reader_test.moc"
