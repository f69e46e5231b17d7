// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "model/SettingsKeeper.h"
#include "tests/support/FullDisk.h"

#include <QFile>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTest>

#include <functional>
#include <memory>

using namespace Qt::StringLiterals;
using namespace quorvane;

/// Two copies of the program on one settings file.
class SettingsKeeperTest final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void whatAnotherCopyChangesIsToldHere();
    void twoCopiesDoNotOverwriteEachOther();
    void anEditorsChangeIsToldHere();
    void aChoiceThatCouldNotBeWrittenIsWrittenLater();
    void aFileDamagedMeanwhileIsMadeAnewOfWhatIsKnown_data();
    void aFileDamagedMeanwhileIsMadeAnewOfWhatIsKnown();
    void choicesOfMeetingsLongGoneAreDropped();

private:
    void write(const QByteArray &bytes) const
    {
        QFile out(path);
        QVERIFY(out.open(QIODevice::WriteOnly));
        out.write(bytes);
    }

    std::unique_ptr<QTemporaryDir> dir;
    QString path;
    std::unique_ptr<Preferences> file;
    std::unique_ptr<Preferences> otherFile;
    std::unique_ptr<SettingsKeeper> keeper;
    std::unique_ptr<SettingsKeeper> other;
};

void SettingsKeeperTest::init()
{
    keeper.reset();
    other.reset();
    dir = std::make_unique<QTemporaryDir>();
    path = dir->filePath(u"new/settings.ini"_s);
    file = std::make_unique<Preferences>(path);
    otherFile = std::make_unique<Preferences>(path);
    keeper = std::make_unique<SettingsKeeper>(SettingsKeeper::Storage::file, *file);
    other = std::make_unique<SettingsKeeper>(SettingsKeeper::Storage::file, *otherFile);
    keeper->start();
    other->start();
}

void SettingsKeeperTest::whatAnotherCopyChangesIsToldHere()
{
    QVERIFY(other->setCalendarEnabled(u"work, private"_s, Switch::off));
    QVERIFY(other->addCalendarFolder(u"/a b/c"_s));
    QVERIFY(other->setServerURL(u"https://a.example"_s));
    QVERIFY(other->setSoundEnabled(Switch::off));
    QVERIFY(other->setUploadMacSnapshot(Switch::on));
    const UserSettings expected{.excludedCalendars = {u"work, private"_s},
                                .calendarFolders = {u"/a b/c"_s},
                                .serverURL = u"https://a.example"_s,
                                .uploadMacSnapshot = true,
                                .soundEnabled = false};
    QTRY_COMPARE_WITH_TIMEOUT(keeper->values() == expected, true, 1000);
    other->choose(u"meeting"_s, Switch::on);
    QVERIFY(other->keepChoices());
    QTRY_COMPARE_WITH_TIMEOUT(keeper->choices(), MeetingChoices({{u"meeting"_s, true}}), 1000);
    QVERIFY(other->setCalendarEnabled(u"work, private"_s, Switch::on));
    QVERIFY(other->removeCalendarFolder(u"/a b/c"_s));
    QTRY_VERIFY(keeper->values().excludedCalendars.isEmpty() && keeper->values().calendarFolders.isEmpty());
}

// Before either has noticed what the other one wrote.
void SettingsKeeperTest::twoCopiesDoNotOverwriteEachOther()
{
    QVERIFY(keeper->setCalendarEnabled(u"a"_s, Switch::off));
    QVERIFY(other->setCalendarEnabled(u"b"_s, Switch::off));
    keeper->choose(u"1"_s, Switch::on);
    other->choose(u"1"_s, Switch::off);
    other->choose(u"2"_s, Switch::on);
    QVERIFY(keeper->keepChoices());
    QVERIFY(other->keepChoices());
    keeper->choose(u"3"_s, Switch::off);
    QVERIFY(keeper->keepChoices());
    QCOMPARE(file->excludedCalendars(), QStringList({u"a"_s, u"b"_s}));
    QCOMPARE(file->meetingChoices(), MeetingChoices({{u"1"_s, false}, {u"2"_s, true}, {u"3"_s, false}}));
}

void SettingsKeeperTest::anEditorsChangeIsToldHere()
{
    QSignalSpy changed(keeper.get(), &SettingsKeeper::valuesChanged);
    write("[General]\nserverURL=https://a.example\n");
    QTRY_COMPARE_WITH_TIMEOUT(keeper->values().serverURL, u"https://a.example"_s, 1000);
    QVERIFY(QFile::remove(path));
    write("[General]\nserverURL=https://b.example\n"); // as editors do that replace the file
    QTRY_COMPARE_WITH_TIMEOUT(keeper->values().serverURL, u"https://b.example"_s, 1000);
    write("[General]\nserverURL=https://c.example\n");
    QTRY_COMPARE_WITH_TIMEOUT(keeper->values().serverURL, u"https://c.example"_s, 1000);
    QCOMPARE(changed.size(), 3);
}

void SettingsKeeperTest::aChoiceThatCouldNotBeWrittenIsWrittenLater()
{
    dir = std::make_unique<QTemporaryDir>();
    QFile inTheWay(dir->filePath(u"new"_s));
    QVERIFY(inTheWay.open(QIODevice::WriteOnly));
    Preferences blocked(dir->filePath(u"new/settings.ini"_s));
    SettingsKeeper own(SettingsKeeper::Storage::file, blocked);
    own.start();
    own.choose(u"1"_s, Switch::on);
    QVERIFY(!own.keepChoices());
    QVERIFY(!own.areChoicesKept());
    QVERIFY(!own.setSoundEnabled(Switch::off));
    QVERIFY(own.values().soundEnabled);
    QCOMPARE(own.choices(), MeetingChoices({{u"1"_s, true}}));
    QVERIFY(inTheWay.remove());
    QVERIFY(own.keepChoices());
    QVERIFY(own.areChoicesKept());
    QCOMPARE(blocked.meetingChoices(), MeetingChoices({{u"1"_s, true}}));
    QVERIFY(blocked.soundEnabled());
}

void SettingsKeeperTest::aFileDamagedMeanwhileIsMadeAnewOfWhatIsKnown_data()
{
    using Writer = std::function<Result<void>()>;
    QTest::addColumn<Writer>("writer");
    QTest::newRow("by a setting") << Writer([this] { return keeper->setSoundEnabled(Switch::off); });
    QTest::newRow("by a choice") << Writer([this] {
        keeper->choose(u"2"_s, Switch::off);
        return keeper->keepChoices();
    });
    QTest::newRow("by an owed acknowledgment")
        << Writer([this] { return file->setPendingAcks({u"old"_s, u"new"_s}); });
    QTest::newRow("by a folder") << Writer([this] { return file->setFantasticalFolder(u"/cache"_s); });
}

void SettingsKeeperTest::aFileDamagedMeanwhileIsMadeAnewOfWhatIsKnown()
{
    QFETCH(std::function<Result<void>()>, writer);
    QVERIFY(keeper->setServerURL(u"https://a.example"_s));
    QVERIFY(file->setPendingAcks({u"old"_s}));
    QVERIFY(file->setFantasticalFolder(u"/cache"_s));
    QSignalSpy changed(keeper.get(), &SettingsKeeper::valuesChanged);
    keeper->choose(u"1"_s, Switch::on);
    QVERIFY(keeper->keepChoices());
    QVERIFY(changed.isEmpty()); // a choice is none of the values
    other.reset();
    QSignalSpy aside(keeper.get(), &SettingsKeeper::wasSetAside);
    write(QByteArray(300, '\0'));
    QTest::qWait(400);
    QCOMPARE(keeper->values().serverURL, u"https://a.example"_s);
    {
        const FullDisk full;
        QVERIFY(!writer());
    }
    QTest::qWait(400);
    QCOMPARE(keeper->values().serverURL, u"https://a.example"_s);
    QVERIFY(aside.isEmpty());
    QVERIFY(writer());
    QCOMPARE(aside.size(), 1);
    QTest::qWait(400);
    QCOMPARE(keeper->values().serverURL, u"https://a.example"_s);
    QCOMPARE(keeper->choices().value(u"1"_s), true);
    QCOMPARE(file->serverURL(), u"https://a.example"_s);
    QCOMPARE(file->meetingChoices(), keeper->choices());
    QCOMPARE(file->fantasticalFolder(), u"/cache"_s);
    QVERIFY(file->pendingAcks().contains(u"old"_s));
}

void SettingsKeeperTest::choicesOfMeetingsLongGoneAreDropped()
{
    for (int i = 0; i < SettingsKeeper::pruneAbove; ++i)
        keeper->choose(QString::number(i), Switch::off);
    QVERIFY(keeper->keepChoices());
    keeper->pruneChoices({u"7"_s});
    QCOMPARE(keeper->choices().size(), SettingsKeeper::pruneAbove);
    keeper->choose(u"new"_s, Switch::on);
    QVERIFY(keeper->keepChoices());
    keeper->pruneChoices({u"7"_s, u"new"_s});
    QCOMPARE(keeper->choices(), MeetingChoices({{u"7"_s, false}, {u"new"_s, true}}));
    QCOMPARE(file->meetingChoices(), keeper->choices());
}

QTEST_GUILESS_MAIN(SettingsKeeperTest)

#include "settings_keeper_test.moc"
