// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "updates/ReleaseNotes.h"

#include <QElapsedTimer>
#include <QTest>

using namespace Qt::StringLiterals;
using namespace quorvane;
using enum ReleaseNotes::Format;

class ReleaseNotesTest final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void notesBecomeReadableText_data();
    void notesBecomeReadableText();
    void longNotesAreCutBehindAWord();
    void garbageTakesBoundedTime();
};

void ReleaseNotesTest::notesBecomeReadableText_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<ReleaseNotes::Format>("format");
    QTest::addColumn<QString>("expected");
    QTest::newRow("a heading and a list")
        << u"<h2>New</h2>\n<ul>\n  <li>Faster\n start</li>\n  <li><p>Fewer &amp; smaller</p></li>\n <li>\n</ul>"_s
        << html << u"New\n• Faster start\n• Fewer & smaller\n•"_s;
    QTest::newRow("what leads elsewhere, runs or styles is left out")
        << u"<style>p{}</style>a<script>b</script><!-- c --><img src=https://t.example/p.gif><a href='d'>e</a>"_s
        << html << u"ae"_s;
    QTest::newRow("what is no tag stays") << u"a &lt;b&gt; c <marquee>d"_s << html << u"a <b> c <marquee>d"_s;
    QTest::newRow("plain text keeps its lines and signs")
        << u"- one &amp; <b>two</b>\n\n\n\n- three\tfour\r\n"_s << plain
        << u"- one &amp; <b>two</b>\n\n- three four"_s;
    QTest::newRow("no control characters, nothing that turns the direction")
        << u"a&#7;b\u202Ec&#x2066;d\u0000e"_s << html << u"abcde"_s;
}

void ReleaseNotesTest::notesBecomeReadableText()
{
    QFETCH(QString, text);
    QFETCH(ReleaseNotes::Format, format);
    QTEST(ReleaseNotes::plainText(text, format), "expected");
}

void ReleaseNotesTest::longNotesAreCutBehindAWord()
{
    const QString words = ReleaseNotes::plainText(u"improved "_s.repeated(1'000), plain);
    QVERIFY(words.endsWith(u"improved…"));
    QVERIFY(words.size() <= ReleaseNotes::longest && words.size() > ReleaseNotes::longest - 20);
    const QString whole(ReleaseNotes::longest, u'x');
    QCOMPARE(ReleaseNotes::plainText(whole, plain), whole);
    QCOMPARE(ReleaseNotes::plainText(whole + u'x', plain), whole.chopped(1) + u'…');
}

void ReleaseNotesTest::garbageTakesBoundedTime()
{
    for (const char *unit : {"<li><p>", "<li <li", "&#x301;", "\n ", "<a href='x'>"}) {
        const QString text = QString::fromLatin1(unit).repeated(250'000);
        QElapsedTimer timer;
        timer.start();
        QVERIFY(ReleaseNotes::plainText(text, html).size() <= 2 * ReleaseNotes::longest);
        QVERIFY2(timer.elapsed() < 8'000, unit);
    }
}

QTEST_GUILESS_MAIN(ReleaseNotesTest)
#include "release_notes_test.moc"
