// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "updates/VersionOrder.h"

#include <QTest>

using namespace quorvane;

class VersionOrderTest final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void oneVersionIsTheNewerOne_data();
    void oneVersionIsTheNewerOne();
    void onlyVersionsMayNameFolders_data();
    void onlyVersionsMayNameFolders();
};

void VersionOrderTest::oneVersionIsTheNewerOne_data()
{
    QTest::addColumn<QString>("older");
    QTest::addColumn<QString>("newer");
    QTest::addColumn<bool>("same");
    const auto row = [](const char *older, const char *newer) {
        QTest::addRow("%s < %s", older, newer)
            << QString::fromLatin1(older) << QString::fromLatin1(newer) << false;
    };
    const auto sameRow = [](const char *one, const char *other) {
        QTest::addRow("%s is %s", one, other)
            << QString::fromLatin1(one) << QString::fromLatin1(other) << true;
    };
    row("811", "812");
    row("99", "100");
    row("1.9", "1.10");
    row("1.2", "1.2.1");
    row("1.0b2", "1.0");
    row("1.0b2", "1.0b10");
    row("1.0a9", "1.0b1");
    row("1.0b2", "1.0.0");
    row("1.0rc1", "1.0.1");
    row("1.0-beta", "1.0");
    row("1.0Z", "1.0a");
    row("812", "812-1");
    row("b", "1");
    row("b", "");
    row("18446744073709551615", "18446744073709551616");
    row("9999999999999999999999999999999999999999", "10000000000000000000000000000000000000000");
    sameRow("1.0", "1.0.0");
    sameRow("1.02", "1.2");
    sameRow("1-2", "1.2");
    sameRow("0", "");
    sameRow("1.0b", "1.0b0");
    sameRow("007", "7");
}

void VersionOrderTest::oneVersionIsTheNewerOne()
{
    QFETCH(QString, older);
    QFETCH(QString, newer);
    QFETCH(bool, same);
    const std::weak_ordering order = VersionOrder::compare(older, newer);
    const std::weak_ordering backward = VersionOrder::compare(newer, older);
    QVERIFY(same ? order == 0 : order < 0);
    QVERIFY(same ? backward == 0 : backward > 0);
}

void VersionOrderTest::onlyVersionsMayNameFolders_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<bool>("expected");
    QTest::newRow("a number") << QStringLiteral("812") << true;
    QTest::newRow("letters, dots and hyphens") << QStringLiteral("1.0-Beta.2") << true;
    QTest::newRow("forty characters") << QString(40, u'1') << true;
    QTest::newRow("one more") << QString(41, u'1') << false;
    QTest::newRow("nothing") << QString() << false;
    QTest::newRow("the folder itself") << QStringLiteral(".") << false;
    QTest::newRow("the folder above") << QStringLiteral("..") << false;
    QTest::newRow("a hidden folder") << QStringLiteral(".1") << false;
    QTest::newRow("a path") << QStringLiteral("1/2") << false;
    QTest::newRow("a space") << QStringLiteral("1 2") << false;
    QTest::newRow("other digits") << QStringLiteral("\u0661") << false;
    QTest::newRow("a character of value 0") << QString(1, QChar(0)) << false;
}

void VersionOrderTest::onlyVersionsMayNameFolders()
{
    QFETCH(QString, text);
    QFETCH(bool, expected);
    QCOMPARE(VersionOrder::isVersion(text), expected);
}

QTEST_GUILESS_MAIN(VersionOrderTest)
#include "version_order_test.moc"
