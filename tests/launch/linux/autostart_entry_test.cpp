// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "launch/linux/AutostartEntry.h"

#include <QDir>
#include <QProcess>
#include <QTemporaryDir>
#include <QTest>

using namespace Qt::StringLiterals;
using namespace quorvane;

class AutostartEntryTest final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void anyExecutableIsStarted_data();
    void anyExecutableIsStarted();
    void theServiceManagerMakesAUnitOfIt_data();
    void theServiceManagerMakesAUnitOfIt();
    void aPercentSignIsNoFieldCode();
    void whatNoEntryCanNameIsRefused();
    void removingLeavesNothingThatStartsTheProgram();
    void aFolderThatCannotBeWrittenIsAFailure();
};

void AutostartEntryTest::anyExecutableIsStarted_data()
{
    QTest::addColumn<QString>("folderName");
    for (const QString &name : {u"bin"_s, u"two words"_s, u"it's \"quoted\""_s, u"$HOME `id` \\ & ; * ?"_s,
                                u"a\\sb\\\\n"_s, u"tab\tand\nline"_s, u"Köln ☎"_s})
        QTest::newRow(qUtf8Printable(name)) << name;
}

// GLib's launcher is an implementation of the specification by somebody else.
void AutostartEntryTest::anyExecutableIsStarted()
{
    QFETCH(QString, folderName);
    const QTemporaryDir folder;
    QVERIFY(QDir(folder.path()).mkdir(folderName));
    const QString executable = folder.filePath(folderName + u"/quorvane"_s);
    const QString started = folder.filePath(u"started"_s);
    QFile script(executable);
    QVERIFY(script.open(QIODevice::WriteOnly));
    script.write("#!/bin/sh\nprintf '%s ' \"$QUORVANE_START\" \"$0\" \"$@\" > '" + started.toUtf8() + "'\n");
    script.setPermissions(QFile::ReadOwner | QFile::ExeOwner);
    script.close();

    AutostartEntry entry(executable, {folder.filePath(u"new/config"_s)});
    QVERIFY(entry.add());
    QVERIFY(entry.add());
    const QString file = folder.filePath(u"new/config/autostart/me.tarnel.Quorvane.desktop"_s);
    QProcess validator;
    validator.setProcessChannelMode(QProcess::MergedChannels);
    validator.start(u"desktop-file-validate"_s, {file});
    QVERIFY2(validator.waitForStarted(), "desktop-file-validate is not installed (./dev deps installs it)");
    validator.waitForFinished();
    QCOMPARE(validator.readAll(), QByteArray());

    QProcess launcher;
    launcher.start(u"gio"_s, {u"launch"_s, file});
    QVERIFY2(launcher.waitForStarted(), "gio is not installed (./dev deps installs it)");
    QTRY_VERIFY(QFile(started).size() > 0);
    QFile said(started);
    QVERIFY(said.open(QIODevice::ReadOnly));
    QCOMPARE(QString::fromUtf8(said.readAll()), u"login "_s + executable + u' ');
    launcher.waitForFinished();
}

void AutostartEntryTest::theServiceManagerMakesAUnitOfIt_data()
{
    QTest::addColumn<QString>("folderName");
    QTest::addColumn<QByteArray>("command");
    QTest::newRow("a word") << u"bin"_s << QByteArray("%1/quorvane");
    QTest::newRow("blanks") << u"two words"_s << QByteArray("\"%1/quorvane\"");
    QTest::newRow("a percent sign") << u"100%f"_s << QByteArray("%1/quorvane");
}

// That the unit starts the program, and with no window, is in system.supervision.
void AutostartEntryTest::theServiceManagerMakesAUnitOfIt()
{
    QFETCH(QString, folderName);
    QFETCH(QByteArray, command);
    const QTemporaryDir folder;
    QVERIFY(QDir(folder.path()).mkdir(folderName));
    const QString executable = folder.filePath(folderName + u"/quorvane"_s);
    QVERIFY(QFile::copy(u"/bin/true"_s, executable));
    QVERIFY(AutostartEntry(executable, {folder.path()}).add());

    QProcess generator;
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(u"XDG_CONFIG_HOME"_s, folder.path());
    generator.setProcessEnvironment(environment);
    generator.start(u"/usr/lib/systemd/user-generators/systemd-xdg-autostart-generator"_s,
                    {folder.path(), folder.path(), folder.path()});
    QVERIFY2(generator.waitForStarted(), "systemd is not installed (./dev deps installs it)");
    QVERIFY(generator.waitForFinished());
    QFile unit(folder.filePath(u"app-me.tarnel.Quorvane@autostart.service"_s));
    QVERIFY(unit.open(QIODevice::ReadOnly));
    command.replace("%1", QFile::encodeName(QFileInfo(executable).path()).replace('%', "%%"));
    QVERIFY(unit.readAll().contains("\nExecStart=:/usr/bin/env QUORVANE_START=login " + command + '\n'));
}

// By itself: GLib 2.74 finds no program whose path has one.
void AutostartEntryTest::aPercentSignIsNoFieldCode()
{
    const QTemporaryDir folder;
    QVERIFY(AutostartEntry(u"/opt/100%f/quorvane"_s, {folder.path()}).add());
    QFile file(folder.filePath(u"autostart/me.tarnel.Quorvane.desktop"_s));
    QVERIFY(file.open(QIODevice::ReadOnly));
    QVERIFY(file.readAll().contains(" \"/opt/100%%f/quorvane\"\n"));
}

void AutostartEntryTest::whatNoEntryCanNameIsRefused()
{
    const QTemporaryDir folder;
    QVERIFY(!AutostartEntry(u"quorvane"_s, {folder.path()}).add());
    QVERIFY(QDir(folder.path()).isEmpty());
}

void AutostartEntryTest::removingLeavesNothingThatStartsTheProgram()
{
    const QTemporaryDir user;
    const QTemporaryDir system;
    QFile file(user.filePath(u"autostart/me.tarnel.Quorvane.desktop"_s));
    AutostartEntry entry(u"/usr/bin/quorvane"_s, {user.path(), user.filePath(u"none"_s), system.path()});
    QVERIFY(entry.remove());
    QVERIFY(entry.add());
    QVERIFY(entry.remove());
    QVERIFY(!file.exists());

    AutostartEntry packaged(u"/usr/bin/quorvane"_s, {system.path()});
    QVERIFY(packaged.add());
    for (int times = 0; times < 2; ++times) {
        QVERIFY(entry.remove());
        QVERIFY(file.open(QIODevice::ReadOnly));
        QVERIFY(file.readAll().contains("\nHidden=true\n"));
        file.close();
    }
    QCOMPARE(QProcess::execute(u"desktop-file-validate"_s, {file.fileName()}), 0);
    QVERIFY(entry.add());
    QVERIFY(entry.restore());
    QVERIFY(file.open(QIODevice::ReadOnly));
    QVERIFY(!file.readAll().contains("Hidden"));
}

void AutostartEntryTest::aFolderThatCannotBeWrittenIsAFailure()
{
    QVERIFY(!AutostartEntry(u"/usr/bin/quorvane"_s, {u"/dev/null"_s}).add());
    QVERIFY(AutostartEntry(u"/usr/bin/quorvane"_s, {u"/dev/null"_s}).remove());
}

QTEST_GUILESS_MAIN(AutostartEntryTest)

#include "autostart_entry_test.moc"
