// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "calendars/ical/LinkUnwrapper.h"
#include "core/HtmlText.h"

#include <QElapsedTimer>
#include <QTest>

using namespace Qt::StringLiterals;
using namespace quorvane;

class TextUnfoldingTest final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void wrappedLinksAreOpened_data();
    void wrappedLinksAreOpened();
    void htmlBecomesTextWithItsLinks_data();
    void htmlBecomesTextWithItsLinks();
    void onlyHtmlIsTakenForHtml_data();
    void onlyHtmlIsTakenForHtml();
    void garbageTakesBoundedTime_data();
    void garbageTakesBoundedTime();
};

void TextUnfoldingTest::wrappedLinksAreOpened_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("expected");
    const QString safe = u"https://eur01.safelinks.protection.outlook.com/?url="_s;
    QTest::newRow("SafeLinks") << u"Join: "_s + safe +
                                      u"https%3A%2F%2Fzoom.us%2Fj%2F1%3Fpwd%3Dx&data=05%7C&reserved=0 now"_s
                               << u"Join: https://zoom.us/j/1?pwd=x now"_s;
    QTest::newRow("SafeLinks in HTML's spelling")
        << safe + u"https%3A%2F%2Fzoom.us%2Fj%2F1&amp;data=05"_s << u"https://zoom.us/j/1"_s;
    QTest::newRow("the parameter is not the first")
        << u"https://nam02.safelinks.protection.outlook.com/ap/x-59/?data=1&amp;url=https%3A%2F%2Fa.example%2F"_s
        << u"https://a.example/"_s;
    QTest::newRow("Google") << u"<https://www.google.com/url?q=https://meet.google.com/abc&sa=D&ust=1>"_s
                            << u"<https://meet.google.com/abc>"_s;
    QTest::newRow("Google with url=")
        << u"https://www.google.com/url?sa=D&url=https%3A%2F%2Fzoom.us%2Fj%2F2"_s << u"https://zoom.us/j/2"_s;
    QTest::newRow("a wrapper in a wrapper")
        << safe +
               u"https%3A%2F%2Fwww.google.com%2Furl%3Fq%3Dhttps%253A%252F%252Fzoom.us%252Fj%252F3%26sa%3DD&data=1"_s
        << u"https://zoom.us/j/3"_s;
    QTest::newRow("capital letters")
        << u"HTTPS://EUR01.SafeLinks.Protection.Outlook.COM/?URL=https%3A%2F%2Fzoom.us"_s
        << u"https://zoom.us"_s;
    QTest::newRow("a dangerous target stays wrapped")
        << safe + u"javascript%3Aalert(1)&data=1"_s << safe + u"javascript%3Aalert(1)&data=1"_s;
    QTest::newRow("no target") << safe + u" "_s << safe + u" "_s;
    QTest::newRow("a host that only looks like it")
        << u"https://evilsafelinks.protection.outlook.com/?url=https%3A%2F%2Fa"_s
        << u"https://evilsafelinks.protection.outlook.com/?url=https%3A%2F%2Fa"_s;
    QTest::newRow("Google's own pages") << u"https://www.google.com/maps?q=https://a.example"_s
                                        << u"https://www.google.com/maps?q=https://a.example"_s;
    QTest::newRow("a target with a line break is cut there")
        << safe + u"https%3A%2F%2Fzoom.us%2Fj%2F4%0Aevil&x=1"_s << u"https://zoom.us/j/4"_s;
    QTest::newRow("plain text") << u"://, http:// and a: b"_s << u"://, http:// and a: b"_s;
}

void TextUnfoldingTest::wrappedLinksAreOpened()
{
    QFETCH(QString, text);
    QFETCH(QString, expected);
    QCOMPARE(LinkUnwrapper::unwrapped(text), expected);
}

void TextUnfoldingTest::htmlBecomesTextWithItsLinks_data()
{
    QTest::addColumn<QString>("html");
    QTest::addColumn<QString>("expected");
    QTest::newRow("a link behind a word")
        << u"<p>Please <a href=\"https://zoom.us/j/1?a=1&amp;b=2\">join</a>.</p>"_s
        << u"Please join https://zoom.us/j/1?a=1&b=2 ."_s;
    QTest::newRow("a link that shows itself")
        << u"<a href='https://zoom.us/j/1'>https://zoom.us/j/1</a>"_s << u"https://zoom.us/j/1"_s;
    QTest::newRow("no quotes, capitals, a link that is not closed")
        << u"<A HREF=https://zoom.us/j/2>Join"_s << u"Join https://zoom.us/j/2"_s;
    QTest::newRow("a link broken over lines")
        << u"<a class=x\n href=\"https://zoom.us/\n j/3\">x</a>"_s << u"x https://zoom.us/j/3"_s;
    QTest::newRow("a link of another kind is dropped") << u"<a href=\"javascript:x()\">x</a>"_s << u"x"_s;
    QTest::newRow("entities") << u"a &amp;amp; b&#38;c&#x26;d&nbsp;e &bogus; &#0; &#xD800; &#99999999;"_s
                              << u"a &amp; b&c&d e &bogus; \uFFFD \uFFFD \uFFFD"_s;
    QTest::newRow("blocks are lines")
        << u"<div>a</div><div>b<br>c</div><ul><li>d<li>e</ul>"_s << u"a\nb\nc\nd\ne"_s;
    QTest::newRow("what is not shown")
        << u"<style>p{}</style>a<!-- <b> --><script>if (a<b) x()</script>b"_s << u"ab"_s;
    QTest::newRow("a link in angle brackets stays") << u"Join<https://teams.microsoft.com/l/1> <b>now</b>"_s
                                                    << u"Join<https://teams.microsoft.com/l/1> now"_s;
    QTest::newRow("tags that do not end")
        << u"a < b <a href=\"https://zoom.us"_s << u"a < b <a href=\"https://zoom.us"_s;
    QTest::newRow("a > in a value") << u"<a title=\"a>b\" href=\"https://zoom.us/j/4\">x</a>"_s
                                    << u"x https://zoom.us/j/4"_s;
}

void TextUnfoldingTest::htmlBecomesTextWithItsLinks()
{
    QFETCH(QString, html);
    QFETCH(QString, expected);
    QCOMPARE(HtmlText::plainText(html, HtmlText::Purpose::links), expected);
}

void TextUnfoldingTest::onlyHtmlIsTakenForHtml_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<bool>("expected");
    QTest::newRow("a tag") << u"a<br>b"_s << true;
    QTest::newRow("an entity") << u"https://a.example/?a=1&amp;b=2"_s << true;
    QTest::newRow("a link in angle brackets") << u"Join<https://zoom.us/j/1>"_s << false;
    QTest::newRow("a mail address") << u"Ann <a@b.example>"_s << false;
    QTest::newRow("a query") << u"https://a.example/?a=1&lt=2&copy=3;"_s << false;
    QTest::newRow("comparisons") << u"a<b, b < c"_s << false;
}

void TextUnfoldingTest::onlyHtmlIsTakenForHtml()
{
    QFETCH(QString, text);
    QFETCH(bool, expected);
    QCOMPARE(HtmlText::isHtml(text), expected);
}

void TextUnfoldingTest::garbageTakesBoundedTime_data()
{
    QTest::addColumn<QString>("unit");
    for (const char *unit : {"<",
                             "<a ",
                             "<a href=\"",
                             "<a x='<b y=\"",
                             "<!--",
                             "<!",
                             "<script>",
                             "<style><script>",
                             "&#x",
                             "&amp",
                             "<a href=https://zoom.us>",
                             "<a     ",
                             "https://",
                             "https://x.safelinks.protection.outlook.com/?url=",
                             "https%3A%2F%2F",
                             "://",
                             "https://www.google.com/url?q=https%3A//www.google.com/url%3Fq%3D",
                             "</a",
                             "&",
                             "<br>",
                             "\n "})
        QTest::newRow(unit) << QString::fromLatin1(unit);
}

void TextUnfoldingTest::garbageTakesBoundedTime()
{
    QFETCH(QString, unit);
    const QString text = unit.repeated(1'000'000 / unit.size());
    QElapsedTimer timer;
    timer.start();
    const QString result = LinkUnwrapper::unwrapped(
        HtmlText::isHtml(text) ? HtmlText::plainText(text, HtmlText::Purpose::links) : text);
    QVERIFY2(timer.elapsed() < 2'000, qPrintable(QString::number(timer.elapsed())));
    QVERIFY(result.size() <= 2 * text.size());
}

QTEST_GUILESS_MAIN(TextUnfoldingTest)
#include "text_unfolding_test.moc"
