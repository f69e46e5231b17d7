// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "model/Preferences.h"

#include <QFile>
#include <QTemporaryDir>
#include <QTest>

using namespace Qt::StringLiterals;
using namespace quorvane;

class PreferencesTest final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void aChosenFolderIsKeptForTheNextLaunch();
    void choosingAFolderLeavesOtherSettingsAlone();
    void aFolderThatCannotBeWrittenChangesNothing();

private:
    QTemporaryDir folder;
};

void PreferencesTest::aChosenFolderIsKeptForTheNextLaunch()
{
    const QString file = folder.filePath(u"new folder/settings.ini"_s);
    for (const QString &chosen : {u"/home/a/Group Containers/Database"_s, u"/Büro, 50 %; \"x\" = @y\\z"_s}) {
        QVERIFY(Preferences(file).setFantasticalFolder(chosen).has_value());
        QCOMPARE(Preferences(file).fantasticalFolder(), chosen);
    }
}

void PreferencesTest::choosingAFolderLeavesOtherSettingsAlone()
{
    QFile file(folder.filePath(u"by hand.ini"_s));
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write(
        "[General]\nmeetingChoices=\"{\\\"a\\\":true,\\\"b\\\":false}\"\nexcludedCalendars=x y, \"z, ü\"\n"
        "serverURL=https://example.org/a?b=c\nsoundEnabled=false\n[of another program]\nkey=1\n");
    file.close();
    Preferences preferences(file.fileName());
    const auto everything = [&preferences] {
        return std::tuple(preferences.meetingChoices(), preferences.excludedCalendars(),
                          preferences.serverURL(), preferences.soundEnabled());
    };
    const auto before = everything();
    QCOMPARE(std::get<0>(before).size(), 2);
    QCOMPARE(preferences.fantasticalFolder(), QString());
    QVERIFY(preferences.setFantasticalFolder(u"/a"_s).has_value());
    QVERIFY(everything() == before);
    QVERIFY(file.open(QIODevice::ReadOnly));
    const QByteArray written = file.readAll();
    QVERIFY(written.contains("fantasticalFolderBookmark=/a\n"));
    QVERIFY(written.contains("[of%20another%20program]\nkey=1\n"));
}

void PreferencesTest::aFolderThatCannotBeWrittenChangesNothing()
{
    QFile notAFolder(folder.filePath(u"file"_s));
    QVERIFY(notAFolder.open(QIODevice::WriteOnly));
    Preferences preferences(notAFolder.fileName() + u"/settings.ini"_s);
    const Result<void> written = preferences.setFantasticalFolder(u"/a"_s);
    QVERIFY(!written.has_value());
    QVERIFY(written.error() == std::errc::io_error);
    QCOMPARE(preferences.fantasticalFolder(), QString());
}

QTEST_GUILESS_MAIN(PreferencesTest)

#include "preferences_test.moc"
