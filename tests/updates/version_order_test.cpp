// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "updates/VersionOrder.h"

#include <QTest>

using namespace quorvane;

class VersionOrderTest final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void versionsAreOrderedByTheirComponents_data();
    void versionsAreOrderedByTheirComponents();
    void onlyVersionsMayNameFolders();
};

void VersionOrderTest::versionsAreOrderedByTheirComponents_data()
{
    QTest::addColumn<QStringList>("sides");
    for (const char *row :
         {"811 < 812",
          "99 < 100",
          "1.9 < 1.10",
          "1.2 < 1.2.1",
          "1.0b2 < 1.0",
          "1.0b2 < 1.0b10",
          "1.0a9 < 1.0b1",
          "1.0b2 < 1.0.0",
          "1.0rc1 < 1.0.1",
          "1.0-beta < 1.0",
          "1.0Z < 1.0a",
          "812 < 812-1",
          "b < 1",
          "b < ",
          "18446744073709551615 < 18446744073709551616",
          "9999999999999999999999999999999999999999 < 10000000000000000000000000000000000000000",
          "1.0 = 1.0.0",
          "1.02 = 1.2",
          "1-2 = 1.2",
          "0 = ",
          "1.0b = 1.0b0",
          "007 = 7"})
        QTest::newRow(row) << QString::fromLatin1(row).split(u' ');
}

void VersionOrderTest::versionsAreOrderedByTheirComponents()
{
    QFETCH(QStringList, sides);
    const bool same = sides[1] == u"=";
    QVERIFY(VersionOrder::compare(sides[0], sides[2]) ==
            (same ? std::weak_ordering::equivalent : std::weak_ordering::less));
    QVERIFY(VersionOrder::compare(sides[2], sides[0]) ==
            (same ? std::weak_ordering::equivalent : std::weak_ordering::greater));
}

void VersionOrderTest::onlyVersionsMayNameFolders()
{
    for (const QString &good : {QStringLiteral("1.0-Beta.2"), QString(40, u'1')})
        QVERIFY2(VersionOrder::isVersion(good), qPrintable(good));
    for (const QString &bad : {QString(), QString(41, u'1'), QString(1, QChar(0)), QStringLiteral(".."),
                               QStringLiteral(".1"), QStringLiteral("1/2"), QStringLiteral("\u0661")})
        QVERIFY2(!VersionOrder::isVersion(bad), qPrintable(bad));
}

QTEST_GUILESS_MAIN(VersionOrderTest)
#include "version_order_test.moc"
