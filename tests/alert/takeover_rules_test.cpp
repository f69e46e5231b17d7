// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "alert/GlowImage.h"
#include "alert/TakeoverMetrics.h"
#include "alert/TakeoverPalette.h"
#include "alert/TakeoverText.h"
#include "alert/TitleText.h"
#include "core/Characters.h"

#include <QTest>

using namespace quorvane;

class TakeoverRulesTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void everySecondHasItsTexts_data();
    void everySecondHasItsTexts();
    void onlyFourMomentsAreAnnounced_data();
    void onlyFourMomentsAreAnnounced();
    void colourWarmsWithUrgency();
    void longerTitlesAreSmaller_data();
    void longerTitlesAreSmaller();
    void theDialFollowsTheHeightWithinItsBounds_data();
    void theDialFollowsTheHeightWithinItsBounds();
    void theBlockKeepsClearOfBrandAndEdge();
    void aTitleIsShownOnOneLineOfBoundedLength();
    void theGlowFadesIntoTheNight();
};

void TakeoverRulesTest::everySecondHasItsTexts_data()
{
    QTest::addColumn<qint64>("seconds");
    QTest::addColumn<QString>("clock");
    QTest::addColumn<QString>("caption");
    QTest::addColumn<bool>("started");
    const auto row = [](qint64 seconds, const char *clock, const char *caption) {
        QTest::addRow("%lld", static_cast<long long>(seconds))
            << seconds << QString::fromUtf8(clock) << QString::fromUtf8(caption) << (seconds < 1);
    };
    row(3600, "60:00", "minutes");
    row(600, "10:00", "minutes");
    row(65, "1:05", "minutes");
    row(61, "1:01", "minutes");
    row(60, "1:00", "minutes");
    row(59, "59", "seconds");
    row(2, "2", "seconds");
    row(1, "1", "second");
    row(0, "Now", "just started");
    row(-59, "Now", "just started");
    row(-60, "Now", "started 1 min ago");
    row(-119, "Now", "started 1 min ago");
    row(-200, "Now", "started 3 min ago");
    row(-600, "Now", "started 10 min ago");
}

void TakeoverRulesTest::everySecondHasItsTexts()
{
    QFETCH(qint64, seconds);
    QFETCH(bool, started);
    QTEST(TakeoverText::clockText(seconds), "clock");
    QTEST(TakeoverText::caption(seconds), "caption");
    QCOMPARE(TakeoverText::headline(seconds),
             started ? QStringLiteral("Your meeting has started") : QStringLiteral("Your meeting starts in"));
    QCOMPARE(TakeoverText::dialLabel(seconds), started ? QStringLiteral("The meeting has started")
                                                       : QStringLiteral("Starts in %1 seconds").arg(seconds));
}

void TakeoverRulesTest::onlyFourMomentsAreAnnounced_data()
{
    QTest::addColumn<qint64>("before");
    QTest::addColumn<qint64>("now");
    QTest::addColumn<bool>("announced");
    const auto row = [](const char *name, qint64 before, qint64 now, bool announced) {
        QTest::newRow(name) << before << now << announced;
    };
    row("a minute", 61, 60, true);
    row("after a minute", 60, 59, false);
    row("half a minute", 31, 30, true);
    row("ten seconds", 11, 10, true);
    row("nine seconds", 10, 9, false);
    row("the start", 1, 0, true);
    row("after the start", 0, -1, false);
    row("a tick that skips ten", 12, 8, true);
    row("a clock set back", 20, 40, false);
}

void TakeoverRulesTest::onlyFourMomentsAreAnnounced()
{
    QFETCH(qint64, before);
    QFETCH(qint64, now);
    QTEST(TakeoverText::isAnnounced(before, now), "announced");
}

void TakeoverRulesTest::colourWarmsWithUrgency()
{
    const QColor ahead = TakeoverPalette::tint(61);
    const QColor lastMinute = TakeoverPalette::tint(60);
    const QColor started = TakeoverPalette::tint(0);
    QCOMPARE(TakeoverPalette::tint(1), lastMinute);
    QCOMPARE(TakeoverPalette::tint(-500), started);
    QVERIFY(ahead.hslHueF() > started.hslHueF() && ahead.hslSaturation() <= lastMinute.hslSaturation());
    QVERIFY(lastMinute.hslHueF() > started.hslHueF());
}

void TakeoverRulesTest::longerTitlesAreSmaller_data()
{
    QTest::addColumn<QSizeF>("window");
    QTest::addColumn<qsizetype>("length");
    QTest::addColumn<int>("font");
    const auto row = [](QSizeF window, qsizetype length, int font) {
        QTest::addRow("%d px high, %d characters", int(window.height()), int(length))
            << window << length << font;
    };
    row({1024, 600}, 60, 32);
    row({1024, 759}, 61, 26);
    row({1920, 760}, 60, 52);
    row({1920, 1080}, 0, 52);
    row({1920, 1080}, 120, 38);
    row({1920, 1080}, 320, 28);
    row({1920, 1080}, 321, 20);
    row({3840, 1600}, 1000, 30);
    row({3840, 2160}, 1, 76);
}

void TakeoverRulesTest::longerTitlesAreSmaller()
{
    QFETCH(QSizeF, window);
    QFETCH(qsizetype, length);
    QTEST(TakeoverMetrics::of(window, length).titleFont, "font");
}

void TakeoverRulesTest::theDialFollowsTheHeightWithinItsBounds_data()
{
    QTest::addColumn<qreal>("height");
    QTest::addColumn<int>("side");
    QTest::newRow("tiny") << 200.0 << 150;
    QTest::newRow("small") << 600.0 << 168;
    QTest::newRow("full HD") << 1080.0 << 302;
    QTest::newRow("4K") << 2160.0 << 320;
}

void TakeoverRulesTest::theDialFollowsTheHeightWithinItsBounds()
{
    QFETCH(qreal, height);
    QTEST(TakeoverMetrics::of({1280, height}, 10).dialSide, "side");
}

void TakeoverRulesTest::theBlockKeepsClearOfBrandAndEdge()
{
    const TakeoverMetrics metrics = TakeoverMetrics::of({1920, 1080}, 10);
    QCOMPARE(metrics.blockY(1080, 600), 250);
    // Too tall to be centred, it stays below the brand.
    QCOMPARE(metrics.blockY(1080, 2000), 104);
    QCOMPARE(metrics.titleLines(-50), 1);
    QCOMPARE(metrics.titleLines(2 * 52 * 1.366 * 0.9 + 1), 2);
}

void TakeoverRulesTest::aTitleIsShownOnOneLineOfBoundedLength()
{
    QCOMPARE(TitleText::displayed(QStringLiteral(" Design\n\treview ")), QStringLiteral("Design review"));
    // A flag is one character of four code units.
    const QString flag = QString::fromUtf8("\xF0\x9F\x87\xA9\xF0\x9F\x87\xAA");
    QCOMPARE(Characters::count(flag + QStringLiteral("e\u0301")), 2);
    const QString endless(1'000'000, QLatin1Char('W'));
    QCOMPARE(TitleText::displayed(endless), endless.left(1500) + QChar(0x2026));
    const QString flags = TitleText::displayed(flag.repeated(2000));
    QVERIFY(Characters::count(flags) <= 1501 && flags.startsWith(flag.repeated(1499)));
}

void TakeoverRulesTest::theGlowFadesIntoTheNight()
{
    const QColor inner(200, 100, 50);
    const QColor night(TakeoverPalette::night);
    const QImage image = glowImage({1600, 1500}, 1, inner, night);
    QCOMPARE(image.pixelColor(800, 750), inner);
    QCOMPARE(image.pixelColor(800 + 725, 750), night);
    QCOMPARE(image.pixelColor(0, 0), night);
    // Halfway the dither keeps the mean between the levels.
    qreal sum = 0;
    for (int y = 0; y < 8; ++y) {
        for (int x = 0; x < 8; ++x)
            sum += qRed(image.pixel(800 + 361 + x, 746 + y));
    }
    QVERIFY(std::abs(sum / 64 - 109) < 1);
    QCOMPARE(glowImage({1600, 1500}, 0.92, inner, night).pixelColor(800 + 670, 750), night);
}

QTEST_GUILESS_MAIN(TakeoverRulesTest)
#include "takeover_rules_test.moc"
