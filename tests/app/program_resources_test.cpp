// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "app/ProgramResources.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <QTest>

using namespace Qt::StringLiterals;
using namespace quorvane;

using Helper = QString (*)(const QString &);
Q_DECLARE_METATYPE(Helper)

class ProgramResourcesTest final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void helpersAreFoundBesideTheirProgram_data();
    void helpersAreFoundBesideTheirProgram();
};

void ProgramResourcesTest::helpersAreFoundBesideTheirProgram_data()
{
    QTest::addColumn<Helper>("helper");
    QTest::addColumn<QStringList>("shipped");
    QTest::addColumn<QString>("found");
    const QString flat = u"bin/calendar-reader/calendar-reader"_s;
    const QString installed = u"libexec/quorvane/calendar-reader/calendar-reader"_s;
    const Helper reader = ProgramResources::calendarReader;
    QTest::newRow("reader in a build tree") << reader << QStringList{flat} << flat;
    QTest::newRow("reader, installed") << reader << QStringList{installed} << installed;
    QTest::newRow("both") << reader << QStringList{flat, installed} << flat;
    QTest::newRow("none") << reader << QStringList{} << QString();
    const Helper unpacker = ProgramResources::updateUnpacker;
    const QString unpacking = u"libexec/quorvane/update-unpacker/update-unpacker"_s;
    QTest::newRow("unpacker, installed") << unpacker << QStringList{installed, unpacking} << unpacking;
}

void ProgramResourcesTest::helpersAreFoundBesideTheirProgram()
{
    QFETCH(Helper, helper);
    QFETCH(QStringList, shipped);
    QFETCH(QString, found);
    const QTemporaryDir tree;
    QVERIFY(QDir(tree.path()).mkpath(u"bin"_s));
    for (const QString &path : shipped) {
        QVERIFY(QDir(tree.path()).mkpath(QFileInfo(path).path()));
        QVERIFY(QFile(tree.filePath(path)).open(QIODevice::WriteOnly));
    }
    QCOMPARE(helper(tree.filePath(u"bin"_s)), found.isEmpty() ? found : tree.filePath(found));
}

QTEST_APPLESS_MAIN(ProgramResourcesTest)
#include "program_resources_test.moc"
