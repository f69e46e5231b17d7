// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "calendars/CalendarError.h"
#include "calendars/linux/FolderStore.h"
#include "tests/calendars/linux/StoreCases.h"
#include "tests/calendars/linux/StoreSeed.h"

#include <QCoroTask>
#include <QDir>
#include <QFileInfo>
#include <QProcess>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTest>

#include <sys/stat.h>

using namespace Qt::StringLiterals;
using namespace quorvane;
using StoreSeed::write;

class FolderStoreTest final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();
    void calendarsAreFoundWhereUsersPutThem();
    void aMarkedFolderIsOneCalendar_data();
    void aMarkedFolderIsOneCalendar();
    void linksAndOddFilesDoNoHarm();
    void aBrokenPieceCostsOnlyItself_data();
    void aBrokenPieceCostsOnlyItself();
    void theOwnerOfACalendarIsTheUser();
    void changesAreNoticed_data();
    void changesAreNoticed();
    void readingIsNoChange();
    void aFolderThatComesLaterIsNoticed();
    void aChangeOfTheSameSizeIsRead();
    void aVanishedFileTakesItsEventsAlong();
    void aStoreWithoutFoldersIsUnavailable();
    void foldersComeAndGoWhileItRuns();
    void whatIsDisconnectedIsForgottenAlsoWhenNothingElseIsThere();
    void theUsersAddressesMayChange();

private:
    static QByteArray meeting(const QByteArray &title, const QByteArray &more = {})
    {
        return StoreCase{"",
                         "BEGIN:VEVENT\nUID:" + title + "\nSUMMARY:" + title +
                             "\nDTSTART:20261123T090000Z\nDURATION:PT1H\n" + more + "END:VEVENT\n",
                         {}}
            .calendar();
    }

    [[nodiscard]] QString path(const QString &name) const { return folder->filePath(name); }
    std::vector<CalendarOption> options() const;
    EventReading readAll() const;
    QStringList titles() const;

    std::unique_ptr<QTemporaryDir> folder;
    std::unique_ptr<FolderStore> store;
};

void FolderStoreTest::init()
{
    folder = std::make_unique<QTemporaryDir>();
    store = std::make_unique<FolderStore>(QStringList{folder->path()}, QStringList{StoreCase::ownAddress});
}

void FolderStoreTest::cleanup()
{
    store.reset();
    folder.reset();
}

std::vector<CalendarOption> FolderStoreTest::options() const
{
    return QCoro::waitFor(store->calendars()).value_or(std::vector<CalendarOption>());
}

EventReading FolderStoreTest::readAll() const
{
    QStringList ids;
    for (const CalendarOption &option : options())
        ids.append(option.id);
    return QCoro::waitFor(store->events(StoreCase::from, StoreCase::to, ids))
        .value_or(EventReading{{}, {u"failed"_s}});
}

QStringList FolderStoreTest::titles() const
{
    QStringList result;
    for (const CalendarEvent &event : readAll().events)
        result.append(event.title.value_or(u"-"_s));
    result.sort();
    return result;
}

void FolderStoreTest::calendarsAreFoundWhereUsersPutThem()
{
    write(path(u"single.ics"_s), meeting("a"));
    write(path(u"named.ICS"_s),
          meeting("b").replace("VERSION:2.0", "VERSION:2.0\r\nX-WR-CALNAME:Football\\, home"));
    write(path(u"work/1.ics"_s), meeting("c"));
    write(path(u"work/2.ics"_s), meeting("d"));
    write(path(u"account/private/1.ics"_s), meeting("e"));
    write(path(u"account/private/displayname"_s), "Priv\xC3\xA9\n");
    write(path(u"empty/displayname"_s), "Empty");
    write(path(u".hidden/1.ics"_s), meeting("f"));
    write(path(u"work/.3.ics.tmp"_s), meeting("g"));
    write(path(u"notes/readme.txt"_s), "no calendar");

    QStringList found;
    for (const CalendarOption &option : options()) {
        QVERIFY(option.id.startsWith(u"folder:"_s + QFileInfo(folder->path()).canonicalFilePath()));
        found.append(option.account + u'/' + option.name);
    }
    found.sort();
    QCOMPARE(found,
             QStringList({u"Calendar folder/Empty"_s, u"Calendar folder/Football, home"_s,
                          u"Calendar folder/single"_s, u"Calendar folder/work"_s, u"account/Priv\u00E9"_s}));
    QCOMPARE(titles(), QStringList({u"a"_s, u"b"_s, u"c"_s, u"d"_s, u"e"_s}));
}

void FolderStoreTest::aMarkedFolderIsOneCalendar_data()
{
    QTest::addColumn<QString>("mark");
    QTest::addColumn<int>("files");
    QTest::newRow("displayname") << u"displayname"_s << 2;
    QTest::newRow("color") << u"color"_s << 2;
    QTest::newRow("too many files to be calendars") << QString() << 65;
}

void FolderStoreTest::aMarkedFolderIsOneCalendar()
{
    QFETCH(QString, mark);
    QFETCH(int, files);
    if (!mark.isEmpty())
        write(path(mark), "#aabbcc");
    for (int i = 0; i < files; ++i)
        write(path(QString::number(i) + u".ics"_s), meeting(QByteArray::number(i)));
    QCOMPARE(options().size(), 1u);
    QCOMPARE(titles().size(), files);
}

void FolderStoreTest::linksAndOddFilesDoNoHarm()
{
    write(path(u"work/1.ics"_s), meeting("a"));
    QVERIFY(QFile::link(folder->path(), path(u"work/loop"_s)));
    QVERIFY(QFile::link(path(u"work"_s), path(u"again"_s)));
    QVERIFY(QFile::link(u"nowhere"_s, path(u"work/dangling.ics"_s)));
    QVERIFY(QFile::link(u"/dev/zero"_s, path(u"work/endless.ics"_s)));
    QCOMPARE(::mkfifo(path(u"work/pipe.ics"_s).toLocal8Bit().constData(), 0600), 0);
    QDir().mkpath(path(u"work/folder.ics"_s));
    QCOMPARE(titles(), QStringList(u"a"_s));
    QCOMPARE(options().size(), 1u);
}

void FolderStoreTest::aBrokenPieceCostsOnlyItself_data()
{
    QTest::addColumn<QByteArray>("content");
    QTest::addColumn<bool>("readable");
    const QByteArray good = meeting("good");
    const auto before = [&good](const QByteArray &piece) {
        return QByteArray(good).replace("BEGIN:VEVENT", piece + "BEGIN:VEVENT");
    };
    QTest::newRow("empty") << QByteArray() << false;
    QTest::newRow("noise") << QByteArray::fromHex("00ff1b5b326a").repeated(1000) << false;
    QTest::newRow("a web page") << QByteArray("<!DOCTYPE html><html>Log in</html>") << false;
    QTest::newRow("UTF-16") << QByteArray(reinterpret_cast<const char *>(u"BEGIN:VCALENDAR"), 30) << false;
    QTest::newRow("only a broken event")
        << QByteArray("BEGIN:VCALENDAR\r\nBEGIN:VEVENT\r\nSUMMARY:x") << false;
    QTest::newRow("an empty calendar") << QByteArray("BEGIN:VCALENDAR\r\nEND:VCALENDAR\r\n") << true;
    QTest::newRow("an event that does not end")
        << before("BEGIN:VEVENT\r\nUID:x\r\nBEGIN:VALARM\r\n") << true;
    QTest::newRow("an event that ends as something else")
        << before("BEGIN:VEVENT\r\nUID:x\r\nEND:V:VEVENT\r\n") << true;
    QTest::newRow("a line too long") << before("BEGIN:VEVENT\r\nDESCRIPTION:" + QByteArray(3'000'000, 'x') +
                                               "\r\nEND:VEVENT\r\n")
                                     << true;
    QTest::newRow("a NUL") << before(QByteArray("BEGIN:VEVENT\r\nSUMMARY:\0\r\nEND:VEVENT\r\n", 37)) << true;
    QTest::newRow("stray ends") << before("END:VALARM\r\nEND:VEVENT\r\nEND:VCALENDAR\r\n") << true;
    QTest::newRow("no end") << QByteArray(good).replace("END:VCALENDAR\r\n", "BEGIN:VEVENT\r\nSUMMARY:cut o")
                            << true;
    QTest::newRow("line feeds only") << QByteArray(good).replace("\r", "") << true;
    QTest::newRow("a byte order mark") << "\xEF\xBB\xBF" + good << true;
    QTest::newRow("small letters") << QByteArray(good).replace("BEGIN:VEVENT", "begin:vevent") << true;
    QTest::newRow("invalid UTF-8") << QByteArray(good).replace("SUMMARY:good",
                                                               "SUMMARY:good\r\nLOCATION:\xFF\xC3(")
                                   << true;
    QTest::newRow("a series without end")
        << before("BEGIN:VEVENT\r\nUID:y\r\nDTSTART:19700101T000000Z\r\nDTEND:19700101T000000Z\r\n"
                  "RRULE:FREQ=YEARLY;BYMONTH=2;BYMONTHDAY=30\r\nEND:VEVENT\r\n")
        << true;
}

void FolderStoreTest::aBrokenPieceCostsOnlyItself()
{
    QFETCH(QByteArray, content);
    QFETCH(bool, readable);
    write(path(u"work/1.ics"_s), meeting("other"));
    write(path(u"piece.ics"_s), content);
    const EventReading reading = readAll();
    QCOMPARE(reading.unreadableCalendars.size(), readable ? 0 : 1);
    QStringList expected{u"other"_s};
    if (content.contains("SUMMARY:good"))
        expected.prepend(u"good"_s);
    QCOMPARE(titles(), expected);

    write(path(u"work/2.ics"_s), content); // beside a good file, nothing is unreadable
    QVERIFY(!readAll().unreadableCalendars.contains(u"folder:"_s +
                                                    QFileInfo(path(u"work"_s)).canonicalFilePath()));
}

void FolderStoreTest::theOwnerOfACalendarIsTheUser()
{
    const QByteArray invited = meeting("a", "ATTENDEE;PARTSTAT=DECLINED:mailto:other@example.org\n");
    write(path(u"1.ics"_s), QByteArray(invited).replace("VERSION:2.0", "X-WR-CALNAME:Other@example.org"));
    write(path(u"2.ics"_s),
          QByteArray(invited).replace("VERSION:2.0", "X-OWNER;CN=\"O: x\":mailto:other@example.org"));
    write(path(u"3.ics"_s), invited);
    int declined = 0;
    for (const CalendarEvent &event : readAll().events)
        declined += event.declinedByUser ? 1 : 0;
    QCOMPARE(declined, 2);
}

void FolderStoreTest::changesAreNoticed_data()
{
    QTest::addColumn<QString>("command");
    QTest::addColumn<QStringList>("expected");
    QTest::newRow("a file is written") << u"cp work/1.ics work/2.ics"_s << QStringList({u"a"_s, u"a"_s});
    QTest::newRow("a file is changed in place")
        << u"sed s/SUMMARY:a/SUMMARY:b/ work/1.ics > x; cat x > work/1.ics"_s << QStringList({u"b"_s});
    QTest::newRow("a file is replaced")
        << u"sed s/SUMMARY:a/SUMMARY:b/ work/1.ics > work/.x; mv work/.x work/1.ics"_s
        << QStringList({u"b"_s});
    QTest::newRow("a file is deleted") << u"rm work/1.ics"_s << QStringList();
    QTest::newRow("a folder is moved here")
        << u"mkdir .new; cp work/1.ics .new; mv .new new"_s << QStringList({u"a"_s, u"a"_s});
    QTest::newRow("a folder is removed") << u"rm -r work"_s << QStringList();
}

void FolderStoreTest::changesAreNoticed()
{
    QFETCH(QString, command);
    QFETCH(QStringList, expected);
    write(path(u"work/1.ics"_s), meeting("a"));
    QCOMPARE(titles(), QStringList{u"a"_s});
    QSignalSpy changes(store.get(), &CalendarStore::changed);
    QProcess other;
    other.setWorkingDirectory(folder->path());
    other.start(u"/bin/sh"_s, {u"-c"_s, command});
    QVERIFY(other.waitForFinished());
    QVERIFY(changes.count() > 0 || changes.wait(2000));
    QCOMPARE(titles(), expected);
}

void FolderStoreTest::readingIsNoChange()
{
    write(path(u"work/1.ics"_s), meeting("a"));
    QCOMPARE(titles(), QStringList{u"a"_s});
    QSignalSpy changes(store.get(), &CalendarStore::changed);
    QCOMPARE(titles(), QStringList{u"a"_s});
    write(path(u"work/.lock"_s), "x");
    write(path(u"work/status.db"_s), "x");
    QVERIFY(!changes.wait(400));
}

void FolderStoreTest::aFolderThatComesLaterIsNoticed()
{
    store = std::make_unique<FolderStore>(QStringList{path(u"not/yet/there"_s)}, QStringList());
    QVERIFY(!QCoro::waitFor(store->calendars()).has_value());
    QSignalSpy changes(store.get(), &CalendarStore::changed);
    write(path(u"not/other"_s), "x");
    QVERIFY(changes.wait(2000)); // "not" is there now
    QVERIFY(!QCoro::waitFor(store->calendars()).has_value());
    changes.clear();
    write(path(u"not/yet/there/1.ics"_s), meeting("a"));
    QVERIFY(changes.wait(2000));
    QCOMPARE(titles(), QStringList{u"a"_s});
}

void FolderStoreTest::aChangeOfTheSameSizeIsRead()
{
    for (char title = 'a'; title <= 'z'; ++title) {
        write(path(u"1.ics"_s), meeting(QByteArray(1, title)));
        QCOMPARE(titles(), QStringList{QString(QLatin1Char(title))});
    }
}

void FolderStoreTest::aVanishedFileTakesItsEventsAlong()
{
    write(path(u"work/1.ics"_s), meeting("a"));
    write(path(u"work/2.ics"_s), meeting("b"));
    QCOMPARE(titles(), QStringList({u"a"_s, u"b"_s}));
    QFile::remove(path(u"work/1.ics"_s));
    QCOMPARE(titles(), QStringList{u"b"_s});
}

void FolderStoreTest::aStoreWithoutFoldersIsUnavailable()
{
    store = std::make_unique<FolderStore>(QStringList{path(u"nowhere"_s)}, QStringList());
    QCOMPARE(QCoro::waitFor(store->calendars()).error(), make_error_code(CalendarError::unavailable));
    const QStringList ids{u"folder:/x"_s};
    QCOMPARE(QCoro::waitFor(store->events(0, 1, ids)).error(), make_error_code(CalendarError::unavailable));
}

void FolderStoreTest::foldersComeAndGoWhileItRuns()
{
    write(path(u"own/a.ics"_s), meeting("a"));
    write(path(u"x/Team/b.ics"_s), meeting("b"));
    write(path(u"y/Team/c.ics"_s), meeting("c"));
    const QString own = path(u"own"_s);
    store->use({own}, {});
    QCOMPARE(titles(), QStringList(u"a"_s));
    QSignalSpy changed(store.get(), &CalendarStore::changed);
    store->use({own, path(u"x/Team"_s)}, {});
    QTRY_COMPARE(changed.size(), 1);
    QCOMPARE(titles(), QStringList({u"a"_s, u"b"_s}));
    QCOMPARE(options().at(1).account, u"Team"_s);
    store->use({own, path(u"x/Team"_s), path(u"y/Team"_s)}, {});
    QCOMPARE(titles(), QStringList({u"a"_s, u"b"_s, u"c"_s}));
    QCOMPARE(options().at(1).account, u"x/Team"_s);
    QCOMPARE(options().at(2).account, u"y/Team"_s);
    store->use({own}, {});
    QCOMPARE(titles(), QStringList(u"a"_s));
}

void FolderStoreTest::whatIsDisconnectedIsForgottenAlsoWhenNothingElseIsThere()
{
    write(path(u"Team/b.ics"_s), meeting("b"));
    const QString absent = path(u"own"_s);
    store->use({absent}, {});
    QVERIFY(!QCoro::waitFor(store->calendars()));
    store->use({absent, path(u"Team"_s)}, {});
    QCOMPARE(titles(), QStringList(u"b"_s));
    QVERIFY(QDir(path(u"Team"_s)).removeRecursively());
    QVERIFY(!QCoro::waitFor(store->calendars())); // missed, and so still held by whoever asks
    store->use({absent}, {});
    const auto left = QCoro::waitFor(store->calendars());
    QVERIFY(left && left->empty());
}

void FolderStoreTest::theUsersAddressesMayChange()
{
    write(path(u"a.ics"_s), meeting("a", "ATTENDEE;PARTSTAT=DECLINED:mailto:new@example.com\n"));
    QVERIFY(!readAll().events.at(0).declinedByUser);
    store->use({folder->path()}, {u"new@example.com"_s});
    QVERIFY(readAll().events.at(0).declinedByUser);
}

QTEST_GUILESS_MAIN(FolderStoreTest)
#include "folder_store_test.moc"
