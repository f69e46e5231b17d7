// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "app/ProgramResources.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <QTest>

using namespace Qt::StringLiterals;
using namespace quorvane;

class ProgramResourcesTest final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void theReaderIsFoundBesideItsProgram_data();
    void theReaderIsFoundBesideItsProgram();
};

void ProgramResourcesTest::theReaderIsFoundBesideItsProgram_data()
{
    QTest::addColumn<QStringList>("shipped");
    QTest::addColumn<QString>("found");
    const QString flat = u"bin/calendar-reader/calendar-reader"_s;
    const QString installed = u"libexec/quorvane/calendar-reader/calendar-reader"_s;
    QTest::newRow("build tree") << QStringList{flat} << flat;
    QTest::newRow("installed") << QStringList{installed} << installed;
    QTest::newRow("both") << QStringList{flat, installed} << flat;
    QTest::newRow("none") << QStringList{} << QString();
}

void ProgramResourcesTest::theReaderIsFoundBesideItsProgram()
{
    QFETCH(QStringList, shipped);
    QFETCH(QString, found);
    const QTemporaryDir tree;
    QVERIFY(QDir(tree.path()).mkpath(u"bin"_s));
    for (const QString &path : shipped) {
        QVERIFY(QDir(tree.path()).mkpath(QFileInfo(path).path()));
        QVERIFY(QFile(tree.filePath(path)).open(QIODevice::WriteOnly));
    }
    QCOMPARE(ProgramResources::calendarReader(tree.filePath(u"bin"_s)),
             found.isEmpty() ? found : tree.filePath(found));
}

QTEST_APPLESS_MAIN(ProgramResourcesTest)
#include "program_resources_test.moc"
