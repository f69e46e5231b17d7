// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "updates/ReleaseNotes.h"

#include <QElapsedTimer>
#include <QTest>

using namespace Qt::StringLiterals;
using namespace quorvane;

class ReleaseNotesTest final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void notesBecomeReadableText_data();
    void notesBecomeReadableText();
    void longNotesAreCutBehindAWord();
    void garbageTakesBoundedTime_data();
    void garbageTakesBoundedTime();
};

void ReleaseNotesTest::notesBecomeReadableText_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<bool>("html");
    QTest::addColumn<QString>("expected");
    QTest::newRow("a heading and a list")
        << u"<h2>New</h2>\n<ul>\n  <li>Faster\n start</li>\n  <li><p>Fewer &amp; smaller</p></li>\n <li>\n</ul>"_s
        << true << u"New\n• Faster start\n• Fewer & smaller\n•"_s;
    QTest::newRow("a link is its text")
        << u"See <a href=\"https://evil.example/\">the page</a>."_s << true << u"See the page."_s;
    QTest::newRow("what runs or styles is left out")
        << u"<style>p{}</style>a<script>alert('x')</script><!-- c --><img src=https://t.example/p.gif>b"_s
        << true << u"ab"_s;
    QTest::newRow("what is no tag stays, to be shown as it is")
        << u"a &lt;b&gt; c <marquee>d"_s << true << u"a <b> c <marquee>d"_s;
    QTest::newRow("plain text keeps its lines and signs")
        << u"- one &amp; <b>two</b>\n\n\n\n- three\tfour\r\n"_s << false
        << u"- one &amp; <b>two</b>\n\n- three four"_s;
    QTest::newRow("no control characters, nothing that turns the direction")
        << u"a&#7;b\u202Ec&#x2066;d\u0000e"_s << true << u"abcde"_s;
    QTest::newRow("nothing") << QString() << true << QString();
}

void ReleaseNotesTest::notesBecomeReadableText()
{
    QFETCH(QString, text);
    QFETCH(bool, html);
    QFETCH(QString, expected);
    QCOMPARE(ReleaseNotes::plainText(text, html ? ReleaseNotes::Format::html : ReleaseNotes::Format::plain),
             expected);
}

void ReleaseNotesTest::longNotesAreCutBehindAWord()
{
    const auto cut = [](const QString &text) {
        return ReleaseNotes::plainText(text, ReleaseNotes::Format::plain);
    };
    const QString words = cut(u"improved "_s.repeated(1'000));
    QVERIFY(words.endsWith(u"improved…"));
    QVERIFY(words.size() <= ReleaseNotes::longest);
    QVERIFY(words.size() > ReleaseNotes::longest - 20);
    QCOMPARE(cut(QString(10'000, u'x')), QString(ReleaseNotes::longest - 1, u'x') + u'…');
    const QString fitting(ReleaseNotes::longest, u'x');
    QCOMPARE(cut(fitting), fitting);
}

void ReleaseNotesTest::garbageTakesBoundedTime_data()
{
    QTest::addColumn<QString>("unit");
    for (const char *unit : {"<li>", "<li><p>", "<ul>", "</li>", "<li <li", "<!--", "<script>", "&#10;",
                             "&#x301;", "\n ", "<a href='x'>"})
        QTest::newRow(unit) << QString::fromLatin1(unit);
}

void ReleaseNotesTest::garbageTakesBoundedTime()
{
    QFETCH(QString, unit);
    const QString text = unit.repeated(4'000'000 / unit.size());
    QElapsedTimer timer;
    timer.start();
    QVERIFY(ReleaseNotes::plainText(text, ReleaseNotes::Format::html).size() <= 2 * ReleaseNotes::longest);
    QVERIFY2(timer.elapsed() < 8'000, qPrintable(QString::number(timer.elapsed())));
}

QTEST_GUILESS_MAIN(ReleaseNotesTest)
#include "release_notes_test.moc"
