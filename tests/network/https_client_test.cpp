// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "network/HttpsClient.h"
#include "network/NetworkError.h"
#include "network/TransportError.h"
#include "tests/support/HttpsPeer.h"

#include <QTest>

using namespace Qt::StringLiterals;
using namespace quorvane;
using namespace std::chrono_literals;

namespace {

const std::error_code success;
const std::error_code rejected = NetworkError::rejected;
const std::error_code closed = transportError(QNetworkReply::RemoteHostClosedError);
const std::error_code refusedCertificate = transportError(QNetworkReply::SslHandshakeFailedError);

} // namespace

class HttpsClientTest final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void onlyAGoodAnswerCounts_data();
    void onlyAGoodAnswerCounts();
    void nobodyElseGetsTheRequest_data();
    void nobodyElseGetsTheRequest();
    void everyWaitIsBounded();
    void aRequestEndsWithItsClient();
    void requestsShareNothing();
    void onlyHttpsIsSpoken();
    void aProxyIsUsedForOtherMachines();

private:
    static std::unique_ptr<HttpsClient> client(const QByteArray &pinned, std::chrono::milliseconds limit)
    {
        const ServerTrust trust([pinned] { return pinned; },
                                {QSslCertificate(HttpsPeer::der(u"ca"_s), QSsl::Der)});
        return std::make_unique<HttpsClient>(trust, limit);
    }
    static HttpsRequest request(const QUrl &url)
    {
        return {.url = url, .contentType = "a/b", .authorization = "Bearer secret", .body = "body"};
    }
    static Result<QByteArray> send(const QUrl &url, const QByteArray &pinned = HttpsPeer::der(u"pinned"_s),
                                   std::chrono::milliseconds limit = 15s)
    {
        return QCoro::waitFor(client(pinned, limit)->send(request(url)));
    }
    static std::error_code failure(const Result<QByteArray> &answer)
    {
        return answer ? std::error_code() : answer.error();
    }
};

void HttpsClientTest::onlyAGoodAnswerCounts_data()
{
    QTest::addColumn<QJsonObject>("order");
    QTest::addColumn<std::error_code>("error");
    QTest::addColumn<int>("length");
    for (const int status : {200, 204, 299})
        QTest::addRow("%d", status) << QJsonObject{{u"status"_s, status}} << success << 0;
    const QJsonObject enticing{{u"Location"_s, u"/elsewhere"_s}};
    for (const int status : {300, 301, 302, 303, 304, 307, 308, 400, 404, 429, 500})
        QTest::addRow("%d", status) << QJsonObject{{u"status"_s, status}, {u"headers"_s, enticing}}
                                    << rejected << 0;
    for (const auto *scheme : {"Basic realm=\"a\"", "Digest realm=\"a\", nonce=\"b\"", "NTLM", "Negotiate"}) {
        const QJsonObject question{{u"WWW-Authenticate"_s, QLatin1StringView(scheme)},
                                   {u"Proxy-Authenticate"_s, QLatin1StringView(scheme)}};
        for (const int status : {401, 407})
            QTest::addRow("%d, %s", status, scheme)
                << QJsonObject{{u"status"_s, status}, {u"headers"_s, question}} << rejected << 0;
    }
    for (const bool isTold : {true, false}) {
        const QJsonObject most{{u"size"_s, 8'000'000}, {u"length"_s, isTold}};
        const QJsonObject more{{u"size"_s, 8'000'001}, {u"length"_s, isTold}};
        QTest::addRow("the longest, length told: %d", isTold) << most << success << 8'000'000;
        QTest::addRow("too long, length told: %d", isTold) << more << rejected << 0;
    }
    const QJsonObject zipped{{u"body"_s, u"abc"_s},
                             {u"headers"_s, QJsonObject{{u"Content-Encoding"_s, u"gzip"_s}}}};
    QTest::newRow("compressed, is not inflated") << zipped << success << 3;
    QTest::newRow("asks who we are") << QJsonObject{{u"asks_certificate"_s, true}} << success << 0;
    const QList<std::pair<QString, std::error_code>> faults{
        {u"garbage"_s, closed},
        {u"drop"_s, closed},
        {u"drop midway"_s, closed},
        {u"refuse"_s, transportError(QNetworkReply::ConnectionRefusedError)}};
    for (const auto &[fault, error] : faults)
        QTest::newRow(qPrintable(fault)) << QJsonObject{{u"fault"_s, fault}, {u"size"_s, 100}} << error << 0;
}

void HttpsClientTest::onlyAGoodAnswerCounts()
{
    QFETCH(QJsonObject, order);
    QFETCH(std::error_code, error);
    QFETCH(int, length);
    HttpsPeer peer(u"pinned"_s);
    peer.tell(order);
    const Result<QByteArray> answer = send(peer.url());
    QCOMPARE(failure(answer), error);
    QCOMPARE(answer.value_or(QByteArray()).size(), length);
    // Once and nowhere else: a message that is sent twice rings twice.
    const bool isReachable = order["fault"_L1].toString() != u"refuse"_s;
    QCOMPARE(peer.requests(), QStringList(isReachable ? 1 : 0, u"POST / a/b Bearer secret body"_s));
}

void HttpsClientTest::nobodyElseGetsTheRequest_data()
{
    QTest::addColumn<QString>("host");
    QTest::addColumn<QString>("shown");
    QTest::addColumn<QByteArray>("pinned");
    QTest::addColumn<bool>("isAccepted");
    const QString here = u"127.0.0.1"_s;
    for (const QString &same : {u"pinned"_s, u"expired"_s, u"early"_s, u"misnamed"_s, u"trusted"_s})
        QTest::addRow("pinned, %s", qPrintable(same)) << here << same << HttpsPeer::der(same) << true;
    const QByteArray pinned = HttpsPeer::der(u"pinned"_s);
    QByteArray altered = pinned;
    altered.back() = static_cast<char>(altered.back() ^ 1);
    const QByteArray pem = QSslCertificate(pinned, QSsl::Der).toPem();
    for (const QByteArray &file : {altered, pinned.chopped(1), QByteArray(), pem})
        QTest::addRow("the file's %lld bytes differ", file.size()) << here << u"pinned"_s << file << false;
    for (const QString &other : {u"homemade"_s, u"leaf"_s, u"trusted"_s})
        QTest::addRow("another one, %s", qPrintable(other)) << here << other << pinned << false;
    const QString there = u"localhost"_s;
    QTest::newRow("elsewhere, signed by an authority") << there << u"trusted"_s << pinned << true;
    QTest::newRow("elsewhere, homemade") << there << u"homemade"_s << pinned << false;
    QTest::newRow("elsewhere, the pinned one") << there << u"pinned"_s << pinned << false;
}

void HttpsClientTest::nobodyElseGetsTheRequest()
{
    QFETCH(QString, host);
    QFETCH(QString, shown);
    QFETCH(QByteArray, pinned);
    QFETCH(bool, isAccepted);
    HttpsPeer peer(shown);
    QCOMPARE(failure(send(peer.url(host), pinned)), isAccepted ? success : refusedCertificate);
    QCOMPARE(peer.connections(), 1);
    QCOMPARE(peer.tell()["received"_L1].toString().isEmpty(), !isAccepted);
}

void HttpsClientTest::everyWaitIsBounded()
{
    HttpsPeer peer(u"trusted"_s);
    for (const QString &fault : {u"silent"_s, u"hang"_s, u"drip"_s}) {
        peer.tell({{u"fault"_s, fault}, {u"size"_s, 1000}});
        const Result<QByteArray> answer = send(peer.url(u"localhost"_s), {}, 1s);
        QCOMPARE(failure(answer), transportError(QNetworkReply::TimeoutError));
    }
}

void HttpsClientTest::aRequestEndsWithItsClient()
{
    HttpsPeer peer(u"pinned"_s);
    for (const QString &fault : {u"silent"_s, u"hang"_s}) {
        const int before = peer.tell({{u"fault"_s, fault}})["connections"_L1].toInt();
        auto shortLived = client(HttpsPeer::der(u"pinned"_s), 15s);
        auto task = shortLived->send(request(peer.url()));
        QTRY_VERIFY(peer.connections() > before);
        shortLived.reset();
        QCOMPARE(failure(QCoro::waitFor(task)), transportError(QNetworkReply::OperationCanceledError));
    }
}

void HttpsClientTest::requestsShareNothing()
{
    HttpsPeer peer(u"pinned"_s);
    peer.tell(
        {{u"headers"_s, QJsonObject{{u"Set-Cookie"_s, u"a=b"_s}, {u"Cache-Control"_s, u"max-age=9"_s}}}});
    const auto busy = client(HttpsPeer::der(u"pinned"_s), 15s);
    auto first = busy->send(request(peer.url()));
    auto second = busy->send(request(peer.url()));
    QVERIFY(QCoro::waitFor(first) && QCoro::waitFor(second));
    QVERIFY(QCoro::waitFor(busy->send({.url = peer.url(), .contentType = "a/b"})));
    QCOMPARE(peer.connections(), 3);
    QVERIFY(!peer.tell()["received"_L1].toString().contains(u"Cookie"_s));
}

void HttpsClientTest::onlyHttpsIsSpoken()
{
    QCOMPARE(failure(send(QUrl(u"http://127.0.0.1:1/"_s))), NetworkError::configuration);
}

void HttpsClientTest::aProxyIsUsedForOtherMachines()
{
    HttpsPeer peer(u"trusted"_s);
    HttpsPeer proxy(u"trusted"_s); // only counts who comes
    qputenv("https_proxy", "http://127.0.0.1:" + QByteArray::number(proxy.url().port()));
    QVERIFY(send(peer.url(), HttpsPeer::der(u"trusted"_s)));
    QVERIFY(send(peer.url(u"localhost"_s)));
    QCOMPARE(proxy.connections(), 0);
    QVERIFY(!send(QUrl(u"https://example.invalid"_s), {}, 5s));
    QCOMPARE(proxy.connections(), 1);
    qunsetenv("https_proxy");
}

QTEST_GUILESS_MAIN(HttpsClientTest)
#include "https_client_test.moc"
