// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "network/HttpsClient.h"
#include "network/NetworkError.h"
#include "network/TransportError.h"
#include "tests/support/HttpsPeer.h"

#include <QElapsedTimer>
#include <QTcpServer>
#include <QTest>

using namespace Qt::StringLiterals;
using namespace quorvane;
using namespace std::chrono_literals;

namespace {

const std::error_code success;
const std::error_code refusedCertificate = transportError(QNetworkReply::SslHandshakeFailedError);
const std::error_code closed = transportError(QNetworkReply::RemoteHostClosedError);
const std::error_code timedOut = transportError(QNetworkReply::TimeoutError);

} // namespace

class HttpsClientTest final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void onlyAGoodAnswerCounts_data();
    void onlyAGoodAnswerCounts();
    void aRedirectIsNotFollowed();
    void aMachineOnThisAddressNeedsThePinnedCertificate_data();
    void aMachineOnThisAddressNeedsThePinnedCertificate();
    void otherMachinesNeedTheAuthorities_data();
    void otherMachinesNeedTheAuthorities();
    void everyWaitIsBounded_data();
    void everyWaitIsBounded();
    void aRequestEndsWithItsClient();
    void everyRequestHasAConnectionOfItsOwn();
    void onlyHttpsIsSpoken();
    void aProxyIsUsedForOtherMachines();

private:
    static ServerTrust trust(const QByteArray &pinned = HttpsPeer::der(u"pinned"_s))
    {
        return ServerTrust([pinned] { return pinned; }, HttpsPeer::authority());
    }
    static HttpsRequest request(const QUrl &url)
    {
        return {.url = url,
                .contentType = "application/json",
                .authorization = "Bearer secret",
                .body = "confidential"};
    }
    static Result<QByteArray> send(const QUrl &url, const ServerTrust &trust,
                                   std::chrono::milliseconds limit = 15s)
    {
        HttpsClient client(trust, limit);
        return QCoro::waitFor(client.send(request(url)));
    }
    static std::error_code failure(const Result<QByteArray> &answer)
    {
        return answer ? std::error_code() : answer.error();
    }
};

void HttpsClientTest::onlyAGoodAnswerCounts_data()
{
    QTest::addColumn<QJsonObject>("behaviour");
    QTest::addColumn<std::error_code>("error");
    QTest::addColumn<qsizetype>("length");
    const std::error_code rejected = NetworkError::rejected;
    for (const int status : {200, 204, 299})
        QTest::addRow("%d", status) << QJsonObject{{u"status"_s, status}} << success << qsizetype(0);
    for (const int status : {300, 304, 400, 404, 429, 500})
        QTest::addRow("%d", status) << QJsonObject{{u"status"_s, status}} << rejected << qsizetype(0);
    const QJsonObject challenge{{u"WWW-Authenticate"_s, u"Basic realm=\"a\""_s}};
    QTest::newRow("asks for a password")
        << QJsonObject{{u"status"_s, 401}, {u"headers"_s, challenge}} << rejected << qsizetype(0);
    for (const bool isAnnounced : {true, false}) {
        const char *how = isAnnounced ? "announced" : "not announced";
        const QJsonObject most{{u"size"_s, 8'000'000}, {u"length"_s, isAnnounced}};
        QTest::addRow("the longest, %s", how) << most << success << qsizetype(8'000'000);
        const QJsonObject more{{u"size"_s, 8'000'001}, {u"length"_s, isAnnounced}};
        QTest::addRow("too long, %s", how) << more << rejected << qsizetype(0);
    }
    const QJsonObject compressed{{u"body"_s, u"abc"_s},
                                 {u"headers"_s, QJsonObject{{u"Content-Encoding"_s, u"gzip"_s}}}};
    QTest::newRow("compressed, is not inflated") << compressed << success << qsizetype(3);
    QTest::newRow("asks for a certificate")
        << QJsonObject{{u"client_certificate"_s, true}, {u"body"_s, u"abc"_s}} << success << qsizetype(3);
    QTest::newRow("no HTTP") << QJsonObject{{u"fault"_s, u"garbage"_s}} << closed << qsizetype(0);
    QTest::newRow("none") << QJsonObject{{u"fault"_s, u"drop"_s}} << closed << qsizetype(0);
    QTest::newRow("half of it") << QJsonObject{{u"fault"_s, u"drop midway"_s}, {u"size"_s, 100}} << closed
                                << qsizetype(0);
    QTest::newRow("no connection") << QJsonObject{{u"fault"_s, u"refuse"_s}}
                                   << transportError(QNetworkReply::ConnectionRefusedError) << qsizetype(0);
}

void HttpsClientTest::onlyAGoodAnswerCounts()
{
    QFETCH(QJsonObject, behaviour);
    QFETCH(std::error_code, error);
    QFETCH(qsizetype, length);
    HttpsPeer peer(u"pinned"_s);
    peer.tell(behaviour);

    const Result<QByteArray> answer = send(peer.url(), trust());
    QCOMPARE(failure(answer), error);
    QCOMPARE(answer.value_or(QByteArray()).size(), length);
    // A message that is sent twice rings twice.
    QCOMPARE(peer.requests().size(), behaviour.value("fault"_L1) == "refuse"_L1 ? 0 : 1);
}

void HttpsClientTest::aRedirectIsNotFollowed()
{
    HttpsPeer target(u"pinned"_s);
    HttpsPeer peer(u"pinned"_s);
    for (const int status : {301, 302, 303, 307, 308}) {
        const QJsonObject location{{u"Location"_s, target.url().toString()}};
        peer.tell({{u"status"_s, status}, {u"headers"_s, location}});
        QCOMPARE(failure(send(peer.url(), trust())), NetworkError::rejected);
    }
    QCOMPARE(target.connections(), 0);
}

void HttpsClientTest::aMachineOnThisAddressNeedsThePinnedCertificate_data()
{
    QTest::addColumn<QString>("shown");
    QTest::addColumn<QByteArray>("pinned");
    QTest::addColumn<bool>("isAccepted");
    for (const auto *same : {"pinned", "expired", "early", "misnamed", "trusted"}) {
        const QString name = QString::fromLatin1(same);
        QTest::addRow("the same, %s", same) << name << HttpsPeer::der(name) << true;
    }
    const QByteArray pinned = HttpsPeer::der(u"pinned"_s);
    QByteArray altered = pinned;
    altered.back() = static_cast<char>(altered.back() ^ 1);
    QTest::newRow("one bit differs") << u"pinned"_s << altered << false;
    QTest::newRow("a byte is missing") << u"pinned"_s << pinned.chopped(1) << false;
    QTest::newRow("there is no pinned one") << u"pinned"_s << QByteArray() << false;
    QTest::newRow("the pinned one as text")
        << u"pinned"_s << QSslCertificate(pinned, QSsl::Der).toPem() << false;
    QTest::newRow("another homemade one") << u"homemade"_s << pinned << false;
    QTest::newRow("one that the pinned one has signed") << u"leaf"_s << pinned << false;
    QTest::newRow("one that an authority has signed") << u"trusted"_s << pinned << false;
}

void HttpsClientTest::aMachineOnThisAddressNeedsThePinnedCertificate()
{
    QFETCH(QString, shown);
    QFETCH(QByteArray, pinned);
    QFETCH(bool, isAccepted);
    HttpsPeer peer(shown);
    QCOMPARE(failure(send(peer.url(), trust(pinned))), isAccepted ? success : refusedCertificate);
    QCOMPARE(peer.connections(), 1);
    QCOMPARE(peer.received().isEmpty(), !isAccepted);
}

void HttpsClientTest::otherMachinesNeedTheAuthorities_data()
{
    QTest::addColumn<QString>("shown");
    QTest::addColumn<bool>("isAccepted");
    QTest::newRow("signed by an authority") << u"trusted"_s << true;
    QTest::newRow("homemade") << u"homemade"_s << false;
    QTest::newRow("the pinned one, under another name") << u"pinned"_s << false;
}

void HttpsClientTest::otherMachinesNeedTheAuthorities()
{
    QFETCH(QString, shown);
    QFETCH(bool, isAccepted);
    HttpsPeer peer(shown);
    const Result<QByteArray> answer = send(peer.url(u"localhost"_s), trust(HttpsPeer::der(shown)));
    QCOMPARE(failure(answer), isAccepted ? success : refusedCertificate);
    QCOMPARE(peer.received().isEmpty(), !isAccepted);
}

void HttpsClientTest::everyWaitIsBounded_data()
{
    QTest::addColumn<QJsonObject>("behaviour");
    QTest::newRow("no handshake") << QJsonObject{{u"fault"_s, u"silent"_s}};
    QTest::newRow("no answer") << QJsonObject{{u"fault"_s, u"hang"_s}};
    QTest::newRow("an answer drop by drop") << QJsonObject{{u"fault"_s, u"drip"_s}, {u"size"_s, 1000}};
}

void HttpsClientTest::everyWaitIsBounded()
{
    QFETCH(QJsonObject, behaviour);
    HttpsPeer peer(u"trusted"_s);
    peer.tell(behaviour);
    QElapsedTimer timer;
    timer.start();
    QCOMPARE(failure(send(peer.url(u"localhost"_s), trust(), 1s)), timedOut);
    QVERIFY(timer.elapsed() < 20'000); // "drop by drop" would take 100
}

void HttpsClientTest::aRequestEndsWithItsClient()
{
    HttpsPeer peer(u"pinned"_s);
    for (const QString &fault : {u"silent"_s, u"hang"_s}) {
        peer.tell({{u"fault"_s, fault}});
        auto client = std::make_unique<HttpsClient>(trust());
        const int before = peer.connections();
        QCoro::Task<Result<QByteArray>> task = client->send(request(peer.url()));
        QTRY_VERIFY(peer.connections() > before);
        client.reset();
        QCOMPARE(failure(QCoro::waitFor(task)), transportError(QNetworkReply::OperationCanceledError));
    }
}

void HttpsClientTest::everyRequestHasAConnectionOfItsOwn()
{
    HttpsPeer peer(u"pinned"_s);
    peer.tell(
        {{u"headers"_s, QJsonObject{{u"Set-Cookie"_s, u"a=b"_s}, {u"Cache-Control"_s, u"max-age=9"_s}}}});
    HttpsClient client(trust());
    QCoro::Task<Result<QByteArray>> first = client.send(request(peer.url()));
    QCoro::Task<Result<QByteArray>> second = client.send(request(peer.url()));
    for (auto *task : {&first, &second})
        QVERIFY(QCoro::waitFor(*task));
    QVERIFY(QCoro::waitFor(client.send({.url = peer.url(), .contentType = "text/plain"})));
    QCOMPARE(peer.connections(), 3);
    QVERIFY(!peer.received().contains("Cookie"));
}

void HttpsClientTest::onlyHttpsIsSpoken()
{
    QTcpServer server;
    QVERIFY(server.listen(QHostAddress::LocalHost));
    QUrl url(u"http://127.0.0.1"_s);
    url.setPort(server.serverPort());
    QCOMPARE(failure(send(url, trust())), NetworkError::configuration);
    QVERIFY(!server.hasPendingConnections());
}

void HttpsClientTest::aProxyIsUsedForOtherMachines()
{
    QTcpServer proxy;
    QVERIFY(proxy.listen(QHostAddress::LocalHost));
    QByteArray asked;
    connect(&proxy, &QTcpServer::newConnection, this, [&] {
        QTcpSocket *socket = proxy.nextPendingConnection();
        connect(socket, &QIODevice::readyRead, this, [&asked, socket] {
            asked += socket->readAll();
            if (asked.contains("\r\n\r\n"))
                socket->disconnectFromHost();
        });
    });
    qputenv("https_proxy", "http://127.0.0.1:" + QByteArray::number(proxy.serverPort()));
    HttpsPeer peer(u"pinned"_s);
    const Result<QByteArray> near = send(peer.url(), trust());
    const Result<QByteArray> far = send(QUrl(u"https://example.invalid/secret"_s), trust());
    qunsetenv("https_proxy");
    QVERIFY(near);
    QVERIFY(!far);
    QVERIFY2(asked.startsWith("CONNECT example.invalid:443 "), asked);
    QVERIFY(!asked.contains("ecret"));
}

QTEST_GUILESS_MAIN(HttpsClientTest)
#include "https_client_test.moc"
