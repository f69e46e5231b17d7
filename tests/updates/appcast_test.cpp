// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "updates/Appcast.h"
#include "updates/FeedMarkup.h"
#include "updates/UpdateError.h"

#include <QElapsedTimer>
#include <QSysInfo>
#include <QTest>

using namespace Qt::StringLiterals;
using namespace quorvane;

namespace {

const QByteArray signature = QByteArray(64, 's').toBase64();
const QByteArray version = "<sparkle:version>812</sparkle:version>";

QByteArray feed(const QByteArray &items)
{
    return R"(<?xml version="1.0" encoding="utf-8"?><rss version="2.0" )"
           R"(xmlns:sparkle="http://www.andymatuschak.org/xml-namespaces/sparkle"><channel><title>Quorvane</title>)" +
           items + "</channel></rss>";
}

QByteArray enclosure(const QByteArray &more = {}, const QByteArray &url = "https://a.example/own",
                     const QByteArray &length = "1000", const QByteArray &signedBy = signature)
{
    return "<enclosure url=\"" + url + "\" length=\"" + length + "\" sparkle:edSignature=\"" + signedBy +
           "\" " + more + "/>";
}

QByteArray enclosureFor(const QByteArray &system, const QByteArray &url)
{
    return enclosure("sparkle:os=\"" + system + '"', url);
}

QByteArray item(const QByteArray &content)
{
    return "<item><title>A</title>" + content + "</item>";
}

void row(const char *name, const QByteArray &bytes)
{
    QTest::newRow(name) << bytes;
}

} // namespace

class AppcastTest final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void anItemIsReadWhole_data();
    void anItemIsReadWhole();
    void whatCannotBeInstalledHereIsLeftOut_data();
    void whatCannotBeInstalledHereIsLeftOut();
    void aFeedThatIsNoneIsRefused_data();
    void aFeedThatIsNoneIsRefused();
    void hostileFeedsTakeBoundedTime_data();
    void hostileFeedsTakeBoundedTime();
    void onlyWhatIsAboveTheInstalledVersionIsNew();
};

void AppcastTest::anItemIsReadWhole_data()
{
    QTest::addColumn<QByteArray>("content");
    const QByteArray notes = "<description><![CDATA[<ul><li>Faster</li></ul>]]></description>";
    const QByteArray shortVersion = "<sparkle:shortVersionString>1.2\n</sparkle:shortVersionString>";
    row("versions as elements", notes + version + shortVersion + enclosure());
    row("versions as attributes",
        notes + enclosure("sparkle:version='812' sparkle:shortVersionString='1.2'"));
    row("elements come before attributes",
        enclosure("sparkle:version='1' sparkle:shortVersionString='9'") + notes + version + shortVersion);
    row("the feed's own enclosure, plain notes, more that nobody knows",
        version + shortVersion +
            "<description sparkle:format=\"plain-text\">• Faster</description><sparkle:deltas>" +
            enclosure("sparkle:version='900'", "https://a.example/delta") +
            "</sparkle:deltas><x:y xmlns:x=\"urn:x\"><sparkle:version>7</sparkle:version></x:y><pubDate/>" +
            enclosure("sparkle:os='linux'").replace("<enclosure", "<sparkle:enclosure"));

    const QByteArray texts = version + shortVersion + notes;
    const QByteArray own = "https://a.example/own";
    const QByteArray other = "https://a.example/other";
    const QByteArray thisSystem = "linux-" + QSysInfo::buildCpuArchitecture().toLatin1();
    row("this processor's enclosure comes before any",
        texts + enclosureFor("linux", other) + enclosureFor(thisSystem, own) + enclosure({}, other));
    row("the enclosure that names Linux",
        texts + enclosure({}, other) + enclosureFor("macos", other) + enclosureFor("linux", own));
    row("one that names none, beside another system's", texts + enclosureFor("macos", other) + enclosure());
    row("the first that can be used", texts + enclosureFor("linux", "ftp://a.example/") +
                                          enclosureFor("linux", own) + enclosureFor("linux", other));
}

void AppcastTest::anItemIsReadWhole()
{
    QFETCH(QByteArray, content);
    const auto items = Appcast::read(feed(item(content)));
    QVERIFY(items);
    QCOMPARE(items->size(), std::size_t(1));
    const UpdateItem expected{
        .version = u"812"_s,
        .shortVersion = u"1.2"_s,
        .notes = u"• Faster"_s,
        .archive = QUrl(u"https://a.example/own"_s),
        .length = 1'000,
        .signature = QByteArray(64, 's'),
    };
    QVERIFY(items->front() == expected);
}

void AppcastTest::whatCannotBeInstalledHereIsLeftOut_data()
{
    QTest::addColumn<QByteArray>("content");
    const QByteArray url = "https://a.example/own";
    row("no version", enclosure());
    row("a version that is a path", "<sparkle:version>../2</sparkle:version>" + enclosure());
    row("no enclosure", version);
    row("not over HTTPS", version + enclosure({}, "http://a.example/own"));
    row("a file", version + enclosure({}, "file:///etc/passwd"));
    row("no host", version + enclosure({}, "https:///own"));
    row("no length", version + enclosure({}, url, ""));
    row("length 0", version + enclosure({}, url, "0"));
    row("a length that is too large", version + enclosure({}, url, "1000000001"));
    row("a length that 64 bits cannot hold", version + enclosure({}, url, "18446744073709551617"));
    row("a length with a sign", version + enclosure({}, url, "+10"));
    row("no signature", version + enclosure({}, url, "9", ""));
    row("a short signature", version + enclosure({}, url, "9", QByteArray(63, 's').toBase64()));
    row("a signature in loose spelling", version + enclosure({}, url, "9", "!" + signature));
    row("a signature that is not padded", version + enclosure({}, url, "9", signature.left(86)));
    row("another channel", version + "<sparkle:channel>beta</sparkle:channel>" + enclosure());
    row("one that only informs", version + "<sparkle:informationalUpdate/>" + enclosure());
    row("another system", version + enclosureFor("windows", url));
    row("another processor", version + enclosureFor("linux-pdp11", url) + enclosure());
    row("names of another namespace",
        "<o:version xmlns:o=\"urn:o\">2</o:version><version>2</version>" + enclosure());
}

void AppcastTest::whatCannotBeInstalledHereIsLeftOut()
{
    QFETCH(QByteArray, content);
    const QByteArray good = item(version + enclosure());
    const auto items = Appcast::read(feed(good + item(content) + good));
    QVERIFY(items);
    QCOMPARE(items->size(), std::size_t(2));
}

void AppcastTest::aFeedThatIsNoneIsRefused_data()
{
    QTest::addColumn<QByteArray>("bytes");
    const QByteArray good = feed(item(version + enclosure()));
    const auto withType = [&](const QByteArray &type) {
        return QByteArray(good).replace("<rss", type + "<rss");
    };
    row("nothing", "");
    row("a web page", "<html><body>Not found</body></html>");
    row("no channel", "<rss version=\"2.0\"/>");
    row("cut off", good.chopped(4));
    row("more behind it", good + good);
    row("no UTF-8", feed("\xFF"));
    row("a document type", withType("<!DOCTYPE rss>"));
    row("entities that grow",
        withType("<!DOCTYPE rss [<!ENTITY a \"aaaaaaaaaa\"><!ENTITY b \"&a;&a;&a;&a;&a;&a;&a;&a;\">]>")
            .replace("Quorvane", "&b;"));
    row("an entity that nobody declared", feed("<item>&nbsp;</item>"));
    row("one byte too many", good + QByteArray(Appcast::largest + 1 - good.size(), ' '));
    row("one item too many", feed(QByteArray("<item/>").repeated(Appcast::mostItems + 1)));
    constexpr int depth = FeedMarkup::deepest;
    row("too deep", feed(QByteArray("<a>").repeated(depth) + QByteArray("</a>").repeated(depth)));
}

void AppcastTest::aFeedThatIsNoneIsRefused()
{
    QFETCH(QByteArray, bytes);
    const auto items = Appcast::read(bytes);
    QVERIFY(!items);
    QVERIFY(items.error() == UpdateError::feedInvalid);
}

void AppcastTest::hostileFeedsTakeBoundedTime_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QByteArray attributes;
    for (int i = 0; i < 300'000; ++i)
        attributes += " a" + QByteArray::number(i) + "=\"\"";
    row("attributes", feed("<a" + attributes + "/>"));
    QByteArray scopes;
    for (int i = 0; i < FeedMarkup::deepest - 2; ++i) {
        scopes += "<a";
        for (int k = 0; k < FeedMarkup::mostAttributes; ++k)
            scopes += " xmlns:n" + QByteArray::number(i * 100 + k) + "=\"u\"";
        scopes += '>';
    }
    row("many names in many scopes", feed(scopes + QByteArray("<n1:b/>").repeated(40'000)));
    row("notes", feed(item("<description>" + QByteArray("&lt;li>").repeated(500'000) + "</description>" +
                           version + enclosure())));
    for (const char *unit : {"<a>", "<!---->", "<!--", "<?a?>", "<", "<a b=\"", "<![CDATA[<li]]>"})
        row(unit, feed(QByteArray(unit).repeated(500'000)).left(Appcast::largest));
}

void AppcastTest::hostileFeedsTakeBoundedTime()
{
    QFETCH(QByteArray, bytes);
    QElapsedTimer timer;
    timer.start();
    (void)Appcast::read(bytes);
    QVERIFY2(timer.elapsed() < 8'000, qPrintable(QString::number(timer.elapsed())));
}

void AppcastTest::onlyWhatIsAboveTheInstalledVersionIsNew()
{
    const auto newest = [](const QStringList &versions) {
        std::vector<UpdateItem> items;
        for (const QString &one : versions)
            items.push_back({.version = one});
        const std::optional<UpdateItem> found = Appcast::newest(items, u"8"_s);
        return found ? found->version : QString();
    };
    QCOMPARE(newest({u"9"_s, u"11"_s, u"10"_s}), u"11"_s);
    QCOMPARE(newest({u"8"_s, u"8.0"_s, u"7"_s, u"8b3"_s}), QString());
    QCOMPARE(newest({}), QString());
}

QTEST_GUILESS_MAIN(AppcastTest)
#include "appcast_test.moc"
