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
const QByteArray cpu = QSysInfo::buildCpuArchitecture().toLatin1();
const QByteArray version = "<sparkle:version>2</sparkle:version>";

QByteArray feed(const QByteArray &items)
{
    return R"(<?xml version="1.0" encoding="utf-8"?><rss version="2.0" )"
           R"(xmlns:sparkle="http://www.andymatuschak.org/xml-namespaces/sparkle"><channel><title>Quorvane</title>)" +
           items + "</channel></rss>";
}

QByteArray enclosure(const QByteArray &more = {}, const QByteArray &url = "https://a.example/2.tar.xz",
                     const QByteArray &length = "1000", const QByteArray &signedBy = signature)
{
    return "<enclosure url=\"" + url + "\" length=\"" + length +
           "\" type=\"application/x-xz\" sparkle:edSignature=\"" + signedBy + "\" " + more + "/>";
}

QByteArray item(const QByteArray &content)
{
    return "<item><title>A</title>" + content + "</item>";
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
    void theEnclosureForThisSystemIsTaken_data();
    void theEnclosureForThisSystemIsTaken();
    void aFeedThatIsNoneIsRefused_data();
    void aFeedThatIsNoneIsRefused();
    void hostileFeedsTakeBoundedTime_data();
    void hostileFeedsTakeBoundedTime();
    void onlyWhatIsAboveTheInstalledVersionIsNew_data();
    void onlyWhatIsAboveTheInstalledVersionIsNew();
};

void AppcastTest::anItemIsReadWhole_data()
{
    QTest::addColumn<QByteArray>("content");
    const QByteArray notes = "<description><![CDATA[<ul><li>Faster</li></ul>]]></description>";
    QTest::newRow("versions as elements")
        << notes +
               "<sparkle:version> 812 </sparkle:version>"
               "<sparkle:shortVersionString>1.2\n</sparkle:shortVersionString>" +
               enclosure();
    QTest::newRow("versions as attributes")
        << notes + enclosure("sparkle:version=\"812\" sparkle:shortVersionString=\"1.2\"");
    QTest::newRow("elements come before attributes")
        << enclosure("sparkle:version=\"1\" sparkle:shortVersionString=\"9\"") + notes +
               "<sparkle:version>812</sparkle:version><sparkle:shortVersionString>1.2</"
               "sparkle:shortVersionString>";
    QTest::newRow("the feed's own enclosure, plain notes, more that nobody knows")
        << QByteArray("<sparkle:version>812</sparkle:version><sparkle:shortVersionString>1.2"
                      "</sparkle:shortVersionString><description sparkle:format=\"plain-text\">• "
                      "Faster</description>"
                      "<sparkle:deltas>") +
               enclosure("sparkle:version=\"900\"", "https://a.example/delta") +
               "</sparkle:deltas><x:y "
               "xmlns:x=\"urn:x\"><sparkle:version>7</sparkle:version></x:y><pubDate/>" +
               enclosure("sparkle:os=\"linux\"").replace("<enclosure", "<sparkle:enclosure");
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
        .archive = QUrl(u"https://a.example/2.tar.xz"_s),
        .length = 1'000,
        .signature = QByteArray(64, 's'),
    };
    QVERIFY(items->front() == expected);
}

void AppcastTest::whatCannotBeInstalledHereIsLeftOut_data()
{
    QTest::addColumn<QByteArray>("content");
    QTest::newRow("nothing") << QByteArray();
    QTest::newRow("no version") << enclosure();
    QTest::newRow("a version that is a path") << "<sparkle:version>../2</sparkle:version>" + enclosure();
    QTest::newRow("no enclosure") << version;
    QTest::newRow("not over HTTPS") << version + enclosure({}, "http://a.example/2.tar.xz");
    QTest::newRow("a file") << version + enclosure({}, "file:///etc/passwd");
    QTest::newRow("no host") << version + enclosure({}, "https:///2.tar.xz");
    QTest::newRow("no address") << version + enclosure({}, "");
    QTest::newRow("no length") << version + enclosure({}, "https://a.example/2", "");
    QTest::newRow("length 0") << version + enclosure({}, "https://a.example/2", "0");
    QTest::newRow("a negative length") << version + enclosure({}, "https://a.example/2", "-1");
    QTest::newRow("a length that is too large")
        << version + enclosure({}, "https://a.example/2", "1000000001");
    QTest::newRow("a length of no 64 bits")
        << version + enclosure({}, "https://a.example/2", "18446744073709551617");
    QTest::newRow("a length with a unit") << version + enclosure({}, "https://a.example/2", "10 MB");
    QTest::newRow("no signature") << version + enclosure({}, "https://a.example/2", "9", "");
    QTest::newRow("a short signature")
        << version + enclosure({}, "https://a.example/2", "9", QByteArray(63, 's').toBase64());
    QTest::newRow("a signature in loose spelling")
        << version + enclosure({}, "https://a.example/2", "9", "!" + signature);
    QTest::newRow("a signature that is not padded")
        << version + enclosure({}, "https://a.example/2", "9", signature.left(86));
    QTest::newRow("another channel") << version + "<sparkle:channel>beta</sparkle:channel>" + enclosure();
    QTest::newRow("one that only informs") << version +
                                                  "<sparkle:informationalUpdate><sparkle:version>1</"
                                                  "sparkle:version></sparkle:informationalUpdate>" +
                                                  enclosure();
    QTest::newRow("another system") << version + enclosure("sparkle:os=\"windows\"");
    QTest::newRow("another processor") << version + enclosure("sparkle:os=\"linux-pdp11\"") + enclosure();
    QTest::newRow("names of another namespace")
        << "<o:version xmlns:o=\"urn:o\">2</o:version>" + enclosure() + "<version>2</version>";
}

void AppcastTest::whatCannotBeInstalledHereIsLeftOut()
{
    QFETCH(QByteArray, content);
    const QByteArray good = item("<sparkle:version>1</sparkle:version>" + enclosure());
    const auto items = Appcast::read(feed(good + item(content) + good));
    QVERIFY(items);
    QCOMPARE(items->size(), std::size_t(2));
}

void AppcastTest::theEnclosureForThisSystemIsTaken_data()
{
    QTest::addColumn<QByteArray>("enclosures");
    const QByteArray own = enclosure("sparkle:os=\"linux-" + cpu + '"', "https://a.example/own");
    const QByteArray anyLinux = enclosure("sparkle:os=\"linux\"", "https://a.example/own");
    const QByteArray otherLinux = enclosure("sparkle:os=\"linux\"", "https://a.example/any");
    const QByteArray mac = enclosure("sparkle:os=\"macos\"", "https://a.example/mac");
    const QByteArray unnamed = enclosure({}, "https://a.example/unnamed");
    QTest::newRow("this processor's comes before any") << otherLinux + own + unnamed;
    QTest::newRow("the one that names Linux") << unnamed + mac + anyLinux;
    QTest::newRow("one that names none, beside another system's")
        << mac + enclosure({}, "https://a.example/own");
    QTest::newRow("the first that can be used")
        << enclosure("sparkle:os=\"linux\"", "ftp://a.example/") + anyLinux + otherLinux;
}

void AppcastTest::theEnclosureForThisSystemIsTaken()
{
    QFETCH(QByteArray, enclosures);
    const auto items = Appcast::read(feed(item(version + enclosures)));
    QVERIFY(items);
    QCOMPARE(items->size(), std::size_t(1));
    QCOMPARE(items->front().archive, QUrl(u"https://a.example/own"_s));
}

void AppcastTest::aFeedThatIsNoneIsRefused_data()
{
    QTest::addColumn<QByteArray>("bytes");
    const QByteArray good = feed(item(version + enclosure()));
    const auto withType = [&](const QByteArray &declaration) {
        return QByteArray(good).replace("<rss", declaration + "<rss");
    };
    QTest::newRow("nothing") << QByteArray();
    QTest::newRow("a web page") << QByteArray("<html><body>Not found</body></html>");
    QTest::newRow("another kind of feed") << QByteArray("<feed xmlns=\"http://www.w3.org/2005/Atom\"/>");
    QTest::newRow("no channel") << QByteArray("<rss version=\"2.0\"/>");
    QTest::newRow("cut off") << good.chopped(4);
    QTest::newRow("more behind it") << good + good;
    QTest::newRow("broken XML") << feed("<item></itme>");
    QTest::newRow("no UTF-8") << feed("\xFF");
    QTest::newRow("a document type") << withType("<!DOCTYPE rss>");
    QTest::newRow("entities that grow")
        << withType("<!DOCTYPE rss [<!ENTITY a \"aaaaaaaaaa\"><!ENTITY b \"&a;&a;&a;&a;&a;&a;&a;&a;\">]>")
               .replace("Quorvane", "&b;");
    QTest::newRow("a file as an entity")
        << withType("<!DOCTYPE rss [<!ENTITY f SYSTEM \"file:///etc/passwd\">]>").replace("Quorvane", "&f;");
    QTest::newRow("an entity that nobody declared") << feed("<item>&nbsp;</item>");
    QTest::newRow("one byte too many") << good + QByteArray(Appcast::largest + 1 - good.size(), ' ');
    QTest::newRow("one item too many") << feed(QByteArray("<item/>").repeated(Appcast::mostItems + 1));
    QTest::newRow("too deep") << feed(QByteArray("<a>").repeated(FeedMarkup::deepest) +
                                      QByteArray("</a>").repeated(FeedMarkup::deepest));
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
    const auto filled = [](const QByteArray &unit) {
        return feed(unit.repeated((Appcast::largest - 1'000) / unit.size()));
    };
    QByteArray attributes;
    for (int i = 0; i < 300'000; ++i)
        attributes += " a" + QByteArray::number(i) + "=\"\"";
    QTest::newRow("attributes") << feed("<a" + attributes + "/>");
    QTest::newRow("namespaces") << feed("<a" + QByteArray(attributes).replace(" a", " xmlns:a") + "/>");
    QByteArray scopes;
    for (int i = 0; i < FeedMarkup::deepest - 2; ++i) {
        scopes += "<a";
        for (int k = 0; k < FeedMarkup::mostAttributes; ++k)
            scopes += " xmlns:n" + QByteArray::number(i * 100 + k) + "=\"u\"";
        scopes += '>';
    }
    QTest::newRow("many names in many scopes") << feed(scopes + QByteArray("<n1:b/>").repeated(40'000));
    QTest::newRow("nesting") << filled("<a>");
    QTest::newRow("elements") << filled("<a/>");
    QTest::newRow("comments") << filled("<!---->");
    QTest::newRow("comments that do not end") << filled("<!--");
    QTest::newRow("instructions") << filled("<?a?>");
    QTest::newRow("references") << filled("&lt;");
    QTest::newRow("brackets") << filled("<");
    QTest::newRow("quotes") << filled("<a b=\"");
    QTest::newRow("notes") << feed(item("<description>" + QByteArray("&lt;li>").repeated(500'000) +
                                        "</description>" + version + enclosure()));
    QTest::newRow("sections") << filled("<![CDATA[<li]]>");
}

void AppcastTest::hostileFeedsTakeBoundedTime()
{
    QFETCH(QByteArray, bytes);
    QElapsedTimer timer;
    timer.start();
    (void)Appcast::read(bytes);
    qInfo("%lld ms", timer.elapsed());
    QVERIFY2(timer.elapsed() < 8'000, qPrintable(QString::number(timer.elapsed())));
}

void AppcastTest::onlyWhatIsAboveTheInstalledVersionIsNew_data()
{
    QTest::addColumn<QStringList>("versions");
    QTest::addColumn<QString>("installed");
    QTest::addColumn<QString>("expected");
    QTest::newRow("the highest, wherever it stands")
        << QStringList{u"9"_s, u"11"_s, u"10"_s} << u"8"_s << u"11"_s;
    QTest::newRow("the installed one") << QStringList{u"8"_s, u"8.0"_s} << u"8"_s << QString();
    QTest::newRow("older ones") << QStringList{u"7"_s, u"6"_s, u"8b3"_s} << u"8"_s << QString();
    QTest::newRow("none") << QStringList{} << u"8"_s << QString();
    QTest::newRow("a build that does not know its number") << QStringList{u"7"_s} << u"0"_s << u"7"_s;
}

void AppcastTest::onlyWhatIsAboveTheInstalledVersionIsNew()
{
    QFETCH(QStringList, versions);
    QFETCH(QString, installed);
    QFETCH(QString, expected);
    std::vector<UpdateItem> items;
    for (const QString &one : versions)
        items.push_back({.version = one});
    const std::optional<UpdateItem> newest = Appcast::newest(items, installed);
    QCOMPARE(newest ? newest->version : QString(), expected);
}

QTEST_GUILESS_MAIN(AppcastTest)
#include "appcast_test.moc"
