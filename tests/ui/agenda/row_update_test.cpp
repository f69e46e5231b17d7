// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "ui/agenda/RowUpdate.h"

#include <QRandomGenerator>
#include <QTest>

#include <algorithm>

using namespace Qt::StringLiterals;
using namespace quorvane;

class RowUpdateTest final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void anyListBecomesAnyOther();
    void asFewRowsAsPossibleMove_data();
    void asFewRowsAsPossibleMove();
    void neighboursComeAndGoTogether();

private:
    static QStringList applied(const std::vector<RowStep> &steps, QStringList list, const QStringList &after);
    static QStringList someOf(QRandomGenerator &random, int most);
};

QStringList RowUpdateTest::applied(const std::vector<RowStep> &steps, QStringList list,
                                   const QStringList &after)
{
    for (const RowStep &step : steps) {
        switch (step.kind) {
        case RowStep::Kind::remove:
            list.remove(step.first, step.count);
            break;
        case RowStep::Kind::move:
            list.move(step.first, step.to);
            break;
        case RowStep::Kind::insert:
            for (int row = step.first; row < step.first + step.count; ++row)
                list.insert(row, after.at(row));
            break;
        }
    }
    return list;
}

QStringList RowUpdateTest::someOf(QRandomGenerator &random, int most)
{
    QStringList keys;
    for (int key = 0; key < most; ++key) {
        if (random.bounded(3) > 0)
            keys.append(QString::number(key));
    }
    if (random.bounded(2) > 0)
        std::shuffle(keys.begin(), keys.end(), random);
    return keys;
}

void RowUpdateTest::anyListBecomesAnyOther()
{
    QRandomGenerator random(20260714);
    for (int round = 0; round < 2000; ++round) {
        const QStringList before = someOf(random, round % 24);
        const QStringList after = someOf(random, random.bounded(24));
        QCOMPARE(applied(RowUpdate::plan(before, after), before, after), after);
    }
}

void RowUpdateTest::asFewRowsAsPossibleMove_data()
{
    QTest::addColumn<QString>("before");
    QTest::addColumn<QString>("after");
    QTest::addColumn<int>("moves");
    QTest::newRow("the same") << "abcdef" << "abcdef" << 0;
    QTest::newRow("the first goes last") << "abcdef" << "bcdefa" << 1;
    QTest::newRow("the last goes first") << "abcdef" << "fabcde" << 1;
    QTest::newRow("two change places") << "abcdef" << "aecdbf" << 2;
    QTest::newRow("turned round") << "abcd" << "dcba" << 3;
    QTest::newRow("others come and go") << "abcdef" << "xbdyafz" << 1;
}

void RowUpdateTest::asFewRowsAsPossibleMove()
{
    QFETCH(QString, before);
    QFETCH(QString, after);
    const auto keys = [](const QString &letters) { return letters.split(QString(), Qt::SkipEmptyParts); };
    const auto steps = RowUpdate::plan(keys(before), keys(after));
    QCOMPARE(applied(steps, keys(before), keys(after)), keys(after));
    QTEST(static_cast<int>(std::ranges::count(steps, RowStep::Kind::move, &RowStep::kind)), "moves");
}

void RowUpdateTest::neighboursComeAndGoTogether()
{
    const auto steps =
        RowUpdate::plan({u"a"_s, u"b"_s, u"c"_s, u"z"_s}, {u"u"_s, u"v"_s, u"z"_s, u"x"_s, u"y"_s});
    QCOMPARE(steps.size(), 3U);
    QCOMPARE(steps[0].count, 3);
}

QTEST_APPLESS_MAIN(RowUpdateTest)
#include "row_update_test.moc"
