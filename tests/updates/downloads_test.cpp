// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "tests/support/FullDisk.h"
#include "tests/support/HttpsPeer.h"
#include "updates/ArchiveDownload.h"
#include "updates/FeedDownload.h"
#include "updates/UpdateError.h"

#include <QFile>
#include <QRandomGenerator>
#include <QTemporaryDir>
#include <QTest>

using namespace Qt::StringLiterals;
using namespace quorvane;
using namespace std::chrono_literals;

namespace {

constexpr int length = 9'000'000;

const std::error_code success;
const std::error_code downloadFailed = UpdateError::downloadFailed;
const std::error_code cancelled = UpdateError::downloadCancelled;

} // namespace

class DownloadsTest final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void init();
    void aFeedComesWholeOrNotAtAll_data();
    void aFeedComesWholeOrNotAtAll();
    void whatIsThereIsContinued_data();
    void whatIsThereIsContinued();
    void aBrokenConnectionIsTakenUpAgain();
    void aServerThatIsGoneIsGivenUp();
    void anotherLengthIsRefused_data();
    void anotherLengthIsRefused();
    void aFullDiskIsFreed();
    void whatCannotBeWrittenFails();
    void aCancelledDownloadCanBeContinued();
    void aDownloadEndsWithItsObject();

private:
    [[nodiscard]] QString file() const { return m_folder.filePath(u"archive"_s); }
    [[nodiscard]] QByteArray content() const
    {
        QFile file(this->file());
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("none");
    }
    static void write(const QString &path, const QByteArray &bytes)
    {
        QFile file(path);
        QVERIFY(file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size());
    }
    static ServerTrust trust()
    {
        return ServerTrust([] { return HttpsPeer::der(u"pinned"_s); });
    }
    /// Has the archive served, with this behaviour.
    QJsonObject serve(QJsonObject order = {})
    {
        order[u"file"_s] = m_folder.filePath(u"served"_s);
        return m_peer.tell(order);
    }
    static std::unique_ptr<ArchiveDownload> download(std::vector<std::chrono::milliseconds> pauses = {
                                                         1ms, 2ms, 3ms})
    {
        return std::make_unique<ArchiveDownload>(
            ArchiveDownloadSetup{.trust = trust(), .pauses = std::move(pauses)});
    }
    auto fetch(ArchiveDownload &download, const ArchiveDownload::Progress &progress = {})
    {
        const UpdateItem item{.version = u"812"_s, .archive = m_peer.url(), .length = length};
        return download.fetch(item, file(), progress);
    }
    std::error_code fetched()
    {
        const auto own = download();
        return failure(QCoro::waitFor(fetch(*own)));
    }
    static std::error_code failure(const Result<void> &outcome)
    {
        return outcome ? std::error_code() : outcome.error();
    }
    QTemporaryDir m_folder;
    HttpsPeer m_peer{u"pinned"_s};
    QByteArray m_archive;
};

void DownloadsTest::initTestCase()
{
    m_archive.resize(length);
    QRandomGenerator(1).fillRange(reinterpret_cast<quint32 *>(m_archive.data()), length / 4);
    write(m_folder.filePath(u"served"_s), m_archive);
}

void DownloadsTest::init()
{
    QFile::remove(file());
    Q_UNUSED(m_peer.newRequests())
}

void DownloadsTest::aFeedComesWholeOrNotAtAll_data()
{
    QTest::addColumn<QJsonObject>("order");
    QTest::addColumn<std::error_code>("error");
    const std::error_code unreachable = UpdateError::feedUnreachable;
    const std::error_code invalid = UpdateError::feedInvalid;
    QTest::newRow("the longest") << QJsonObject{{u"size"_s, 4'000'000}} << std::error_code();
    QTest::newRow("one byte more") << QJsonObject{{u"size"_s, 4'000'001}, {u"length"_s, false}} << invalid;
    QTest::newRow("50 MB") << QJsonObject{{u"size"_s, 50'000'000}} << invalid;
    QTest::newRow("endless") << QJsonObject{{u"fault"_s, u"endless"_s},
                                            {u"size"_s, 99'999},
                                            {u"length"_s, false}}
                             << invalid;
    QTest::newRow("not there") << QJsonObject{{u"status"_s, 404}} << unreachable;
    QTest::newRow("cut short") << QJsonObject{{u"fault"_s, u"drop midway"_s}, {u"size"_s, 100}}
                               << unreachable;
    QTest::newRow("drips") << QJsonObject{{u"fault"_s, u"drip"_s}, {u"size"_s, 1'000}} << unreachable;
}

void DownloadsTest::aFeedComesWholeOrNotAtAll()
{
    QFETCH(QJsonObject, order);
    QFETCH(std::error_code, error);
    m_peer.tell(order);
    FeedDownload download(trust(), {.whole = 5s});
    const Result<QByteArray> feed = QCoro::waitFor(download.fetch(m_peer.url()));
    QCOMPARE(feed ? std::error_code() : feed.error(), error);
    QCOMPARE(feed.value_or(QByteArray()).size(), error ? 0 : 4'000'000);
}

void DownloadsTest::whatIsThereIsContinued_data()
{
    QTest::addColumn<int>("present");
    QTest::addColumn<QString>("ranges");
    QTest::addColumn<QStringList>("requests");
    const QString whole = u"GET /"_s;
    const QString rest = u"GET / bytes=1234567-"_s;
    QTest::newRow("nothing") << -1 << u"kept"_s << QStringList{whole};
    QTest::newRow("an empty file") << 0 << u"kept"_s << QStringList{whole};
    QTest::newRow("a part") << 1'234'567 << u"kept"_s << QStringList{rest};
    QTest::newRow("a part, but the server begins anew") << 1'234'567 << u"ignored"_s << QStringList{rest};
    QTest::newRow("a part, but the server refuses") << 1'234'567 << u"refused"_s << QStringList{rest, whole};
    QTest::newRow("a part, but the server errs") << 1'234'567 << u"wrong"_s << QStringList{rest, whole};
    QTest::newRow("all of it") << length << u"kept"_s << QStringList{};
    QTest::newRow("more than all") << length + 1 << u"kept"_s << QStringList{whole};
}

void DownloadsTest::whatIsThereIsContinued()
{
    QFETCH(int, present);
    QFETCH(QString, ranges);
    QFETCH(QStringList, requests);
    if (present >= 0)
        write(file(), (m_archive + "x").first(present));
    serve({{u"ranges"_s, ranges}});
    QList<qint64> told;
    const auto own = download();
    const auto progress = [&told](qint64 bytes) { told.append(bytes); };
    QElapsedTimer taken;
    taken.start();
    QCOMPARE(failure(QCoro::waitFor(fetch(*own, progress))), success);
    QVERIFY(content() == m_archive);
    QCOMPARE(m_peer.newRequests(), requests);
    QCOMPARE(told.last(), length);
    QVERIFY(told.size() <= taken.elapsed() / 100 + 2);
}

void DownloadsTest::aBrokenConnectionIsTakenUpAgain()
{
    // More breaks than there are tries, but each try brings something.
    serve({{u"fault"_s, u"drop midway"_s}, {u"midway"_s, 1'500'000}});
    QCOMPARE(fetched(), success);
    QVERIFY(content() == m_archive);
    QStringList requests = m_peer.newRequests();
    QVERIFY(requests.size() >= length / 1'500'000);
    QCOMPARE(requests.takeFirst(), u"GET /"_s);
    QVERIFY(
        std::ranges::all_of(requests, [](const QString &request) { return request.contains(u"bytes="_s); }));
}

void DownloadsTest::aServerThatIsGoneIsGivenUp()
{
    write(file(), m_archive.first(1'000));
    const auto isKept = [this] { return content().size() >= 1'000 && m_archive.startsWith(content()); };
    for (const QJsonObject &order : {QJsonObject{{u"fault"_s, u"drop"_s}},
                                     QJsonObject{{u"fault"_s, u"drop midway"_s}, {u"midway"_s, 9}}}) {
        serve(order);
        QCOMPARE(fetched(), downloadFailed);
        QCOMPARE(m_peer.newRequests().size(), 4);
    }
    QVERIFY(isKept());
    serve({{u"status"_s, 404}});
    QCOMPARE(fetched(), downloadFailed);
    QCOMPARE(m_peer.newRequests().size(), 1);
    QVERIFY(isKept());
}

void DownloadsTest::anotherLengthIsRefused_data()
{
    QTest::addColumn<QJsonObject>("order");
    for (const bool isTold : {true, false}) {
        for (const int size : {length - 1, length + 1})
            QTest::addRow("%d bytes, told: %d", size, isTold)
                << QJsonObject{{u"size"_s, size}, {u"length"_s, isTold}};
    }
    QTest::newRow("endless") << QJsonObject{
        {u"size"_s, 99'999}, {u"fault"_s, u"endless"_s}, {u"length"_s, false}};
}

void DownloadsTest::anotherLengthIsRefused()
{
    QFETCH(QJsonObject, order);
    m_peer.tell(order);
    QCOMPARE(fetched(), UpdateError::wrongLength);
    QVERIFY(!QFile::exists(file()));
}

void DownloadsTest::aFullDiskIsFreed()
{
    write(file(), m_archive.first(1'000));
    serve();
    const FullDisk full;
    QCOMPARE(fetched(), UpdateError::diskFull);
    QVERIFY(!QFile::exists(file()));
}

void DownloadsTest::whatCannotBeWrittenFails()
{
    QVERIFY(QFile::link(u"elsewhere"_s, file()));
    QCOMPARE(fetched(), downloadFailed);
    QVERIFY(!QFile::exists(m_folder.filePath(u"elsewhere"_s)));
    QCOMPARE(m_peer.newRequests(), QStringList());
}

void DownloadsTest::aCancelledDownloadCanBeContinued()
{
    const auto own = download();
    serve({{u"fault"_s, u"stall"_s}, {u"midway"_s, 1'000'000}});
    auto task = fetch(*own);
    QTRY_COMPARE(QFileInfo(file()).size(), 1'000'000);
    QCOMPARE(failure(QCoro::waitFor(fetch(*own))), downloadFailed);
    own->cancel();
    QCOMPARE(failure(QCoro::waitFor(task)), cancelled);
    // From within, and before it began.
    serve();
    QCOMPARE(failure(QCoro::waitFor(fetch(*own, [&own](qint64) { own->cancel(); }))), cancelled);
    auto early = fetch(*own);
    own->cancel();
    QCOMPARE(failure(QCoro::waitFor(early)), cancelled);
    QCOMPARE(failure(QCoro::waitFor(fetch(*own))), success);
    QVERIFY(content() == m_archive);
}

void DownloadsTest::aDownloadEndsWithItsObject()
{
    // While it waits for the server, and while it waits before a new try.
    for (const QString &fault : {u"stall"_s, u"drop"_s}) {
        init();
        const int before = serve({{u"fault"_s, fault}})["connections"_L1].toInt();
        auto own = download({10min});
        auto task = fetch(*own);
        QTRY_VERIFY(m_peer.connections() > before);
        QTest::qWait(200);
        own.reset();
        QCOMPARE(failure(QCoro::waitFor(task)), cancelled);
    }
}

QTEST_GUILESS_MAIN(DownloadsTest)
#include "downloads_test.moc"
