// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "calendars/linux/EvolutionStore.h"
#include "calendars/linux/FolderStore.h"
#include "tests/calendars/linux/StoreCases.h"
#include "tests/calendars/linux/StoreSeed.h"

#include <QCoroTask>
#include <QDateTime>
#include <QFileInfo>
#include <QTemporaryDir>
#include <QTest>

using namespace Qt::StringLiterals;
using namespace quorvane;

/// The same calendars behind both stores, each a real one.
class StoreBehaviourTest final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void cleanupTestCase();
    void occurrencesAreWhereTheCalendarPutsThem_data();
    void occurrencesAreWhereTheCalendarPutsThem();
    void linksAndNotesAreUnfolded_data();
    void linksAndNotesAreUnfolded();
    void calendarsAreShownWithAccountAndColour();
    void strangeIdentifiersArePassedOver_data();
    void strangeIdentifiersArePassedOver();

private:
    static void addStores();
    static QString described(const CalendarEvent &event);
    [[nodiscard]] CalendarStore &store(const QString &name) const;
    [[nodiscard]] static QString id(const QString &store, const QString &calendar);
    [[nodiscard]] EventReading read(const QString &storeName, const QString &calendar) const;

    static inline QTemporaryDir folder;
    std::unique_ptr<CalendarStore> folders;
    std::unique_ptr<CalendarStore> evolution;
};

namespace {

const StoreCase linked{
    "linked",
    "BEGIN:VEVENT\nUID:1\nSUMMARY:1\nDTSTART:20261123T090000Z\nDURATION:PT1H\nURL:https://plain.example/\n"
    "CONFERENCE;VALUE=URI;FEATURE=PHONE:tel:+123\n"
    "CONFERENCE;VALUE=URI;FEATURE=AUDIO,VIDEO:https://zoom.us/j/1?a=1\\,2\n"
    "X-GOOGLE-CONFERENCE:https://meet.google.com/abc-defg-hij\nDESCRIPTION:Hello\nEND:VEVENT\n"
    "BEGIN:VEVENT\nUID:2\nSUMMARY:2\nDTSTART:20261124T090000Z\nDURATION:PT1H\n"
    "X-MICROSOFT-SKYPETEAMSMEETINGURL:https://eur01.safelinks.protection.outlook.com/"
    "?url=https%3A%2F%2Fteams.microsoft.com%2Fl%2F2&d\n"
    " ata=1\nLOCATION:https://www.google.com/url?q=https://zoom.us/j/2&sa=D\n"
    "DESCRIPTION:Read <a href=\"https://a.example/?x=1&amp;y=2\">this</a><br>&quot;now&quot;\nEND:VEVENT\n"
    "BEGIN:VEVENT\nUID:3\nSUMMARY:3\nDTSTART:20261125T090000Z\nDURATION:PT1H\n"
    "X-CONFERENCE-URI:https://talk.example/3\nURL:https://plain.example/3\nDESCRIPTION:Join here\n"
    "X-ALT-DESC;FMTTYPE=text/html:<html><body><a href=\"https://zoom.us/j/3\">Join "
    "here</a></body></html>\nEND:VEVENT\n",
    {}};

} // namespace

void StoreBehaviourTest::initTestCase()
{
    qputenv("TZ", "Europe/Berlin");
    std::vector<StoreCase> cases = StoreCase::all();
    cases.push_back(linked);
    for (const StoreCase &one : cases) {
        const QString name = QString::fromLatin1(one.name);
        StoreSeed::inFolder(folder.path(), name, one.calendar());
        StoreSeed::inEvolution(name, one.calendar(), StoreCase::ownAddress);
    }
    folders = std::make_unique<FolderStore>(QStringList{folder.path()}, QStringList{StoreCase::ownAddress});
    evolution = std::make_unique<EvolutionStore>();
}

void StoreBehaviourTest::cleanupTestCase()
{
    folders.reset();
    evolution.reset();
}

void StoreBehaviourTest::addStores()
{
    QTest::addColumn<QString>("storeName");
    QTest::newRow("folder") << u"folder"_s;
    QTest::newRow("evolution") << u"evolution"_s;
}

CalendarStore &StoreBehaviourTest::store(const QString &name) const
{
    return name == u"folder" ? *folders : *evolution;
}

QString StoreBehaviourTest::id(const QString &store, const QString &calendar)
{
    return store == u"folder" ? u"folder:"_s + QFileInfo(folder.path() + u'/' + calendar).canonicalFilePath()
                              : u"evolution:"_s + calendar;
}

EventReading StoreBehaviourTest::read(const QString &storeName, const QString &calendar) const
{
    const QStringList ids{id(storeName, calendar)};
    const auto reading = QCoro::waitFor(store(storeName).events(StoreCase::from, StoreCase::to, ids));
    if (!reading)
        qWarning("%s", reading.error().message().c_str());
    return reading.value_or(EventReading{{}, ids});
}

QString StoreBehaviourTest::described(const CalendarEvent &event)
{
    const auto time = [](double seconds) {
        return QDateTime::fromSecsSinceEpoch(qRound64(seconds), Qt::UTC).toString(u"MM-dd hh:mm");
    };
    QString text = time(event.start) + u'/' + time(event.end) + u' ' + event.title.value_or(u"-"_s);
    if (event.allDay)
        text += u" all-day";
    if (event.status == EventStatus::cancelled)
        text += u" cancelled";
    if (event.status == EventStatus::tentative)
        text += u" tentative";
    if (event.declinedByUser)
        text += u" declined";
    return text;
}

void StoreBehaviourTest::occurrencesAreWhereTheCalendarPutsThem_data()
{
    QTest::addColumn<QString>("storeName");
    QTest::addColumn<QString>("calendar");
    QTest::addColumn<QStringList>("expected");
    for (const StoreCase &one : StoreCase::all()) {
        for (const char *name : {"folder", "evolution"}) {
            QTest::addRow("%s, %s", one.name, name)
                << QString::fromLatin1(name) << QString::fromLatin1(one.name) << one.expected;
        }
    }
}

void StoreBehaviourTest::occurrencesAreWhereTheCalendarPutsThem()
{
    QFETCH(QString, storeName);
    QFETCH(QString, calendar);
    QFETCH(QStringList, expected);
    const EventReading reading = read(storeName, calendar);
    QCOMPARE(reading.unreadableCalendars, QStringList());
    QStringList found;
    for (const CalendarEvent &event : reading.events)
        found.append(described(event));
    QCOMPARE(found, expected);
}

void StoreBehaviourTest::linksAndNotesAreUnfolded_data()
{
    addStores();
}

void StoreBehaviourTest::linksAndNotesAreUnfolded()
{
    QFETCH(QString, storeName);
    const EventReading reading = read(storeName, u"linked"_s);
    QCOMPARE(reading.events.size(), 3u);
    for (const CalendarEvent &event : reading.events)
        QVERIFY(event.isSearched); // or else the main thread would search it
    const CalendarEvent &first = reading.events[0];
    QCOMPARE(first.joinURL, first.url);
    QCOMPARE(first.externalIdentifier, u"1"_s);
    QCOMPARE(first.url, u"https://zoom.us/j/1?a=1,2"_s);
    QCOMPARE(first.notes, u"Hello\nhttps://meet.google.com/abc-defg-hij\nhttps://plain.example/"_s);
    const CalendarEvent &second = reading.events[1];
    QCOMPARE(second.url, u"https://teams.microsoft.com/l/2"_s);
    QCOMPARE(second.location, u"https://zoom.us/j/2"_s);
    QCOMPARE(second.notes, u"Read this https://a.example/?x=1&y=2\n\"now\""_s);
    const CalendarEvent &third = reading.events[2];
    QCOMPARE(third.url, u"https://plain.example/3"_s);
    QCOMPARE(third.joinURL, u"https://zoom.us/j/3"_s);
    QCOMPARE(third.notes, u"Join here\nhttps://zoom.us/j/3\nhttps://talk.example/3"_s);
}

void StoreBehaviourTest::calendarsAreShownWithAccountAndColour()
{
    const auto inFolder = QCoro::waitFor(folders->calendars());
    QVERIFY(inFolder.has_value());
    const CalendarOption expectedFolder{id(u"folder"_s, u"utc"_s), u"utc"_s, u"Calendar folder"_s,
                                        u"#62a0ea"_s};
    QVERIFY(std::find(inFolder->begin(), inFolder->end(), expectedFolder) != inFolder->end());
    const auto inEvolution = QCoro::waitFor(evolution->calendars());
    QVERIFY(inEvolution.has_value());
    const CalendarOption expectedEvolution{u"evolution:utc"_s, u"Calendar utc"_s, u"Work account"_s,
                                           u"#62a0ea"_s};
    QVERIFY(std::find(inEvolution->begin(), inEvolution->end(), expectedEvolution) != inEvolution->end());
}

void StoreBehaviourTest::strangeIdentifiersArePassedOver_data()
{
    addStores();
}

void StoreBehaviourTest::strangeIdentifiersArePassedOver()
{
    QFETCH(QString, storeName);
    const QStringList ids{u"folder:/nowhere"_s, u"evolution:nobody"_s, QString(), id(storeName, u"utc"_s)};
    const auto reading = QCoro::waitFor(store(storeName).events(StoreCase::from, StoreCase::to, ids));
    QVERIFY(reading.has_value());
    QCOMPARE(reading->unreadableCalendars, QStringList());
    QCOMPARE(reading->events.size(), 1u);
    QCOMPARE(reading->events[0].calendarId, ids.constLast());
}

QTEST_GUILESS_MAIN(StoreBehaviourTest)
#include "store_behaviour_test.moc"
