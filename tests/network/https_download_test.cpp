// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "network/HttpsDownload.h"
#include "network/NetworkError.h"
#include "network/TransportError.h"
#include "tests/support/HttpsPeer.h"

#include <QCoroFuture>
#include <QPromise>
#include <QTest>

using namespace Qt::StringLiterals;
using namespace quorvane;
using namespace std::chrono_literals;

namespace {

const std::error_code success;
const std::error_code rejected = NetworkError::rejected;
const std::error_code tooLong = NetworkError::tooLong;
const std::error_code closed = transportError(QNetworkReply::RemoteHostClosedError);
const std::error_code timedOut = transportError(QNetworkReply::TimeoutError);
const std::error_code cancelled = transportError(QNetworkReply::OperationCanceledError);
const std::error_code refusedCertificate = transportError(QNetworkReply::SslHandshakeFailedError);

const QJsonObject endless{{u"fault"_s, u"endless"_s}, {u"size"_s, 100'000}, {u"length"_s, false}};

/// Keeps what comes; takes nothing while it is busy.
class Bytes final : public DownloadSink
{
public:
    QCoro::Task<Result<void>> restart() override
    {
        all.clear();
        co_return Result<void>();
    }
    QCoro::Task<Result<void>> take(QByteArray bytes) override
    {
        all += bytes;
        if (busy)
            co_await busy->future();
        co_return Result<void>();
    }

    QByteArray all;
    std::optional<QPromise<void>> busy;
};

QJsonObject moved(const QString &path, const QString &target)
{
    return {{u"path"_s, path}, {u"status"_s, 302}, {u"headers"_s, QJsonObject{{u"Location"_s, target}}}};
}

} // namespace

class HttpsDownloadTest final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { Q_UNUSED(m_peer.newRequests()) }
    void onlyAGoodAnswerCounts_data();
    void onlyAGoodAnswerCounts();
    void redirectionsAreFollowedAFewTimes();
    void redirectionsLeadToTrustedServersOnly();
    void aServerWithoutTheRightCertificateGetsNothing();
    void aProxyIsUsedForOtherMachines();
    void everyWaitIsBounded();
    void aSlowSinkHoldsTheServerUp();
    void aDownloadEndsWithItsObject();

private:
    static std::unique_ptr<HttpsDownload> download(DownloadLimits limits = {})
    {
        const ServerTrust trust([] { return HttpsPeer::der(u"pinned"_s); },
                                {QSslCertificate(HttpsPeer::der(u"ca"_s), QSsl::Der)});
        return std::make_unique<HttpsDownload>(trust, limits);
    }
    static std::error_code fetch(const DownloadRequest &request, const std::shared_ptr<Bytes> &sink,
                                 DownloadLimits limits = {})
    {
        return failure(QCoro::waitFor(download(limits)->fetch(request, sink)));
    }
    static std::error_code failure(const Result<void> &outcome)
    {
        return outcome ? std::error_code() : outcome.error();
    }
    static DownloadRequest request(const QUrl &url) { return {.url = url, .longest = 1'000'000}; }

    HttpsPeer m_peer{u"pinned"_s};
};

void HttpsDownloadTest::onlyAGoodAnswerCounts_data()
{
    QTest::addColumn<QJsonObject>("order");
    QTest::addColumn<std::error_code>("error");
    QTest::addColumn<int>("length");
    QTest::newRow("nothing") << QJsonObject{} << success << 0;
    for (const bool isTold : {true, false}) {
        const QJsonObject most{{u"size"_s, 1'000'000}, {u"length"_s, isTold}};
        const QJsonObject more{{u"size"_s, 1'000'001}, {u"length"_s, isTold}};
        QTest::addRow("the longest, length told: %d", isTold) << most << success << 1'000'000;
        QTest::addRow("too long, length told: %d", isTold) << more << tooLong << -1;
    }
    QTest::newRow("announced as too long") << QJsonObject{{u"length"_s, 1'000'001}} << tooLong << 0;
    QTest::newRow("endless") << endless << tooLong << -1;
    for (const int status : {204, 206, 300, 304, 401, 404, 416, 500})
        QTest::addRow("%d", status) << QJsonObject{{u"status"_s, status}} << rejected << 0;
    for (const QString &fault : {u"garbage"_s, u"drop"_s})
        QTest::newRow(qPrintable(fault)) << QJsonObject{{u"fault"_s, fault}} << closed << 0;
    QTest::newRow("drop midway") << QJsonObject{{u"fault"_s, u"drop midway"_s}, {u"size"_s, 9'999}} << closed
                                 << -1;
}

void HttpsDownloadTest::onlyAGoodAnswerCounts()
{
    QFETCH(QJsonObject, order);
    QFETCH(std::error_code, error);
    QFETCH(int, length);
    m_peer.tell(order);
    const auto sink = std::make_shared<Bytes>();
    QCOMPARE(fetch(request(m_peer.url()), sink), error);
    QVERIFY(length < 0 ? sink->all.size() <= 1'000'000 : sink->all.size() == length);
    QCOMPARE(m_peer.newRequests(), QStringList{u"GET /"_s});
}

void HttpsDownloadTest::redirectionsAreFollowedAFewTimes()
{
    const auto sink = std::make_shared<Bytes>();
    for (int i = 1; i <= 6; ++i)
        m_peer.tell(moved(u"/%1"_s.arg(i), QString::number(i - 1)));
    m_peer.tell({{u"path"_s, u"/0"_s}, {u"body"_s, u"there"_s}});
    QCOMPARE(fetch(request(m_peer.url().resolved(QUrl(u"/6"_s))), sink), rejected);
    DownloadRequest resumed = request(m_peer.url().resolved(QUrl(u"/5"_s)));
    resumed.offset = 3;
    QCOMPARE(fetch(resumed, sink), success);
    QCOMPARE(sink->all, "re");
    QCOMPARE(m_peer.requests().last(), u"GET /0 bytes=3-"_s);
}

void HttpsDownloadTest::redirectionsLeadToTrustedServersOnly()
{
    HttpsPeer trusted(u"trusted"_s);
    HttpsPeer homemade(u"homemade"_s);
    const QString host = u"localhost"_s;
    QUrl http = trusted.url(host);
    http.setScheme(u"http"_s);
    const QList<std::pair<QUrl, std::error_code>> targets{{http, rejected},
                                                          {homemade.url(host), refusedCertificate},
                                                          {trusted.url(), refusedCertificate},
                                                          {trusted.url(host), success}};
    for (const auto &[target, error] : targets) {
        m_peer.tell(moved(u"/from"_s, target.toString()));
        const QUrl from = m_peer.url().resolved(QUrl(u"/from"_s));
        QCOMPARE(fetch(request(from), std::make_shared<Bytes>()), error);
    }
    QVERIFY(homemade.tell()["received"_L1].toString().isEmpty());
    QCOMPARE(trusted.requests(), QStringList{u"GET /"_s});
}

void HttpsDownloadTest::aServerWithoutTheRightCertificateGetsNothing()
{
    HttpsPeer peer(u"leaf"_s);
    for (const QString &host : {u"127.0.0.1"_s, u"localhost"_s})
        QCOMPARE(fetch(request(peer.url(host)), std::make_shared<Bytes>()), refusedCertificate);
    QVERIFY(peer.tell()["received"_L1].toString().isEmpty());
    QCOMPARE(fetch(request(QUrl(u"http://127.0.0.1:1"_s)), std::make_shared<Bytes>()),
             NetworkError::configuration);
}

void HttpsDownloadTest::aProxyIsUsedForOtherMachines()
{
    HttpsPeer proxy(u"trusted"_s); // only counts who comes
    qputenv("https_proxy", "http://127.0.0.1:" + QByteArray::number(proxy.url().port()));
    const std::error_code error =
        fetch(request(QUrl(u"https://example.invalid"_s)), std::make_shared<Bytes>(), {.stall = 1s});
    qunsetenv("https_proxy");
    QVERIFY(error);
    QCOMPARE(proxy.connections(), 1);
}

void HttpsDownloadTest::everyWaitIsBounded()
{
    HttpsPeer peer(u"trusted"_s);
    const QUrl url = peer.url(u"localhost"_s);
    const auto sink = std::make_shared<Bytes>();
    for (const QString &fault : {u"silent"_s, u"hang"_s, u"stall"_s}) {
        peer.tell({{u"fault"_s, fault}, {u"size"_s, 1'000}});
        QCOMPARE(fetch(request(url), sink, {.stall = 500ms}), timedOut);
    }
    peer.tell({{u"fault"_s, u"drip"_s}, {u"size"_s, 1'000}});
    QCOMPARE(fetch(request(url), sink, {.whole = 1s}), timedOut);
    // But not how long a body that keeps coming takes.
    peer.tell({{u"fault"_s, u"drip"_s}, {u"size"_s, 12}});
    QCOMPARE(fetch(request(url), sink, {.stall = 1s}), success);
}

void HttpsDownloadTest::aSlowSinkHoldsTheServerUp()
{
    m_peer.tell(endless);
    const auto sink = std::make_shared<Bytes>();
    sink->busy.emplace().start();
    const auto slow = download({.stall = 500ms});
    DownloadRequest wanted = request(m_peer.url());
    wanted.longest = 100'000'000;
    auto task = slow->fetch(wanted, sink);
    // What is on the way lies with the system, some 10 MB on this machine.
    QTest::qWait(1'000);
    QVERIFY(m_peer.tell()["sent"_L1].toInteger() < 40'000'000);
    QVERIFY(!task.isReady() && sink->all.size() < 1'000'000);
    // A sink that takes its time is not a server that stalls.
    sink->busy->finish();
    QCOMPARE(failure(QCoro::waitFor(task)), tooLong);
    QVERIFY(sink->all.size() > 99'000'000);
}

void HttpsDownloadTest::aDownloadEndsWithItsObject()
{
    for (const QString &fault : {u"silent"_s, u"hang"_s, u"stall"_s}) {
        const int before = m_peer.tell({{u"fault"_s, fault}, {u"size"_s, 1'000}})["connections"_L1].toInt();
        auto shortLived = download();
        auto task = shortLived->fetch(request(m_peer.url()), std::make_shared<Bytes>());
        QTRY_VERIFY(m_peer.connections() > before);
        shortLived.reset();
        QCOMPARE(failure(QCoro::waitFor(task)), cancelled);
    }
    m_peer.tell({{u"size"_s, 1'000}});
    auto endsItself = download();
    DownloadRequest wanted = request(m_peer.url());
    wanted.progress = [&endsItself](qint64) { endsItself.reset(); };
    QCOMPARE(failure(QCoro::waitFor(endsItself->fetch(wanted, std::make_shared<Bytes>()))), cancelled);
}

QTEST_GUILESS_MAIN(HttpsDownloadTest)
#include "https_download_test.moc"
