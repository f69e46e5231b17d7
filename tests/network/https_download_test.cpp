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

/// Keeps what comes; takes nothing while it is busy.
class Bytes final : public DownloadSink
{
public:
    explicit Bytes(QByteArray before = {})
        : all(std::move(before))
    {
    }
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
        co_return outcome;
    }

    QByteArray all;
    std::optional<QPromise<void>> busy;
    Result<void> outcome;
};

QByteArray letters(int count)
{
    QByteArray bytes(count, Qt::Uninitialized);
    for (int i = 0; i < count; ++i)
        bytes[i] = static_cast<char>('a' + i % 26);
    return bytes;
}

QJsonObject moved(const QString &path, const QString &target)
{
    return {{u"path"_s, path}, {u"status"_s, 302}, {u"headers"_s, QJsonObject{{u"Location"_s, target}}}};
}

} // namespace

class HttpsDownloadTest final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void onlyAGoodAnswerCounts_data();
    void onlyAGoodAnswerCounts();
    void aDownloadGoesOnWhereItStood_data();
    void aDownloadGoesOnWhereItStood();
    void redirectionsAreFollowedAFewTimes();
    void redirectionsLeadToTrustedServersOnly();
    void aServerWithoutTheRightCertificateGetsNothing();
    void everyWaitIsBounded();
    void aSlowSinkHoldsTheServerUp();
    void aSinkThatFailsEndsTheDownload();
    void progressIsToldNowAndThen();
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
    QTest::newRow("endless") << QJsonObject{{u"fault"_s, u"endless"_s},
                                            {u"size"_s, 9'999},
                                            {u"length"_s, false}}
                             << tooLong << -1;
    for (const int status : {204, 206, 300, 304, 401, 404, 416, 500})
        QTest::addRow("%d", status) << QJsonObject{{u"status"_s, status}} << rejected << 0;
    for (const QString &fault : {u"garbage"_s, u"drop"_s})
        QTest::newRow(qPrintable(fault)) << QJsonObject{{u"fault"_s, fault}} << closed << 0;
    QTest::newRow("what came before a break counts")
        << QJsonObject{{u"fault"_s, u"drop midway"_s}, {u"size"_s, 900'000}, {u"midway"_s, 800'000}} << closed
        << 800'000;
}

void HttpsDownloadTest::onlyAGoodAnswerCounts()
{
    QFETCH(QJsonObject, order);
    QFETCH(std::error_code, error);
    QFETCH(int, length);
    HttpsPeer peer(u"pinned"_s);
    peer.tell(order);
    const auto sink = std::make_shared<Bytes>();
    QCOMPARE(fetch(request(peer.url()), sink), error);
    QVERIFY(length < 0 ? sink->all.size() <= 1'000'000 : sink->all.size() == length);
    QCOMPARE(peer.requests(), QStringList{u"GET /"_s});
}

void HttpsDownloadTest::aDownloadGoesOnWhereItStood_data()
{
    QTest::addColumn<QString>("ranges");
    QTest::addColumn<QStringList>("requests");
    const QString rest = u"GET / bytes=300-"_s;
    const QString whole = u"GET /"_s;
    QTest::newRow("the rest") << u"kept"_s << QStringList{rest};
    QTest::newRow("the whole instead") << u"ignored"_s << QStringList{rest};
    QTest::newRow("another rest") << u"wrong"_s << QStringList{rest, whole};
    QTest::newRow("no such rest") << u"refused"_s << QStringList{rest, whole};
}

void HttpsDownloadTest::aDownloadGoesOnWhereItStood()
{
    QFETCH(QString, ranges);
    QFETCH(QStringList, requests);
    const QByteArray body = letters(1'000);
    HttpsPeer peer(u"pinned"_s);
    peer.tell({{u"body"_s, QString::fromLatin1(body)}, {u"ranges"_s, ranges}});
    const auto sink = std::make_shared<Bytes>(body.first(300));
    const DownloadRequest wanted{.url = peer.url(), .longest = 1'000, .offset = 300};
    QCOMPARE(fetch(wanted, sink), success);
    QCOMPARE(sink->all, body);
    QCOMPARE(peer.requests(), requests);
}

void HttpsDownloadTest::redirectionsAreFollowedAFewTimes()
{
    HttpsPeer peer(u"pinned"_s);
    const auto sink = std::make_shared<Bytes>();
    for (int i = 1; i <= 6; ++i)
        peer.tell(moved(u"/%1"_s.arg(i), QString::number(i - 1)));
    peer.tell({{u"path"_s, u"/0"_s}, {u"body"_s, u"there"_s}});
    QCOMPARE(fetch(request(peer.url().resolved(QUrl(u"/6"_s))), sink), rejected);
    QVERIFY(sink->all.isEmpty());
    DownloadRequest resumed = request(peer.url().resolved(QUrl(u"/5"_s)));
    resumed.offset = 3;
    QCOMPARE(fetch(resumed, sink), success);
    QCOMPARE(sink->all, "re");
    QCOMPARE(peer.requests().last(), u"GET /0 bytes=3-"_s);
}

void HttpsDownloadTest::redirectionsLeadToTrustedServersOnly()
{
    HttpsPeer peer(u"pinned"_s);
    HttpsPeer trusted(u"trusted"_s);
    HttpsPeer homemade(u"homemade"_s);
    trusted.tell({{u"body"_s, u"there"_s}});
    const QUrl http(u"http://localhost:%1"_s.arg(trusted.url().port()));
    QUrl withPassword = trusted.url(u"localhost"_s);
    withPassword.setUserInfo(u"name:secret"_s);
    const QList<std::pair<QUrl, std::error_code>> targets{{http, rejected},
                                                          {homemade.url(u"localhost"_s), refusedCertificate},
                                                          {trusted.url(), refusedCertificate},
                                                          {withPassword, success}};
    for (const auto &[target, error] : targets) {
        peer.tell(moved(u"/"_s, target.toString()));
        const auto sink = std::make_shared<Bytes>();
        QCOMPARE(fetch(request(peer.url()), sink), error);
        QCOMPARE(sink->all, error ? QByteArray() : "there");
    }
    QVERIFY(homemade.tell()["received"_L1].toString().isEmpty());
    QCOMPARE(trusted.requests(), QStringList{u"GET /"_s});
}

void HttpsDownloadTest::aServerWithoutTheRightCertificateGetsNothing()
{
    const auto sink = std::make_shared<Bytes>();
    for (const QString &host : {u"127.0.0.1"_s, u"localhost"_s}) {
        HttpsPeer peer(u"leaf"_s);
        QCOMPARE(fetch(request(peer.url(host)), sink), refusedCertificate);
        QVERIFY(peer.tell()["received"_L1].toString().isEmpty());
    }
    QCOMPARE(fetch(request(QUrl(u"http://127.0.0.1:1"_s)), sink), NetworkError::configuration);
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
    peer.tell({{u"fault"_s, u"drip"_s}, {u"size"_s, 15}});
    QCOMPARE(fetch(request(url), sink, {.stall = 1s}), success);
}

void HttpsDownloadTest::aSlowSinkHoldsTheServerUp()
{
    HttpsPeer peer(u"pinned"_s);
    peer.tell({{u"fault"_s, u"endless"_s}, {u"size"_s, 100'000}, {u"length"_s, false}});
    const auto sink = std::make_shared<Bytes>();
    sink->busy.emplace().start();
    const auto slow = download({.stall = 500ms});
    DownloadRequest wanted = request(peer.url());
    wanted.longest = 100'000'000;
    auto task = slow->fetch(wanted, sink);
    // What is on the way lies with the system; the server stands still once that is full.
    qint64 sent = -1;
    QTRY_VERIFY_WITH_TIMEOUT(sent == std::exchange(sent, peer.tell()["sent"_L1].toInteger()) && sent > 0,
                             20'000);
    QTest::qWait(1'000);
    QCOMPARE(peer.tell()["sent"_L1].toInteger(), sent);
    QVERIFY(sink->all.size() <= 1'000'000);
    QVERIFY(!task.isReady());
    // A sink that takes its time is not a server that stalls.
    sink->busy->finish();
    QCOMPARE(failure(QCoro::waitFor(task)), tooLong);
    QVERIFY(sink->all.size() > 99'000'000);
}

void HttpsDownloadTest::aSinkThatFailsEndsTheDownload()
{
    HttpsPeer peer(u"pinned"_s);
    peer.tell({{u"fault"_s, u"endless"_s}, {u"size"_s, 100'000}, {u"length"_s, false}});
    const auto sink = std::make_shared<Bytes>();
    const std::error_code reason = std::make_error_code(std::errc::no_space_on_device);
    sink->outcome = Failure(reason);
    QCOMPARE(fetch(request(peer.url()), sink), reason);
}

void HttpsDownloadTest::progressIsToldNowAndThen()
{
    HttpsPeer peer(u"pinned"_s);
    peer.tell({{u"size"_s, 20'000'000}});
    QList<qint64> told;
    DownloadRequest wanted = request(peer.url());
    wanted.longest = 20'000'000;
    wanted.progress = [&told](qint64 bytes) { told.append(bytes); };
    QElapsedTimer taken;
    taken.start();
    QCOMPARE(fetch(wanted, std::make_shared<Bytes>()), success);
    QVERIFY(told.size() >= 2 && told.size() <= taken.elapsed() / 100 + 2);
    QVERIFY(std::ranges::is_sorted(told));
    QCOMPARE(told.last(), 20'000'000);
}

void HttpsDownloadTest::aDownloadEndsWithItsObject()
{
    HttpsPeer peer(u"pinned"_s);
    for (const QString &fault : {u"silent"_s, u"hang"_s, u"stall"_s}) {
        const int before = peer.tell({{u"fault"_s, fault}, {u"size"_s, 1'000}})["connections"_L1].toInt();
        auto shortLived = download();
        auto task = shortLived->fetch(request(peer.url()), std::make_shared<Bytes>());
        QTRY_VERIFY(peer.connections() > before);
        shortLived.reset();
        QCOMPARE(failure(QCoro::waitFor(task)), cancelled);
    }
    peer.tell({{u"size"_s, 1'000}});
    auto endsItself = download();
    DownloadRequest wanted = request(peer.url());
    wanted.progress = [&endsItself](qint64) { endsItself.reset(); };
    QCOMPARE(failure(QCoro::waitFor(endsItself->fetch(wanted, std::make_shared<Bytes>()))), cancelled);
}

QTEST_GUILESS_MAIN(HttpsDownloadTest)
#include "https_download_test.moc"
