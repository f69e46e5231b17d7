// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "core/StrictJson.h"
#include "network/Network.h"
#include "network/NetworkError.h"
#include "network/PinnedCertificate.h"
#include "network/Secrets.h"
#include "network/TransportError.h"
#include "tests/support/HttpsPeer.h"
#include "tests/support/MemorySecrets.h"

#include <QDir>
#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QLoggingCategory>
#include <QTemporaryDir>
#include <QTest>
#include <QUrlQuery>

#include <limits>

using namespace Qt::StringLiterals;
using namespace quorvane;

namespace {

constexpr double noon = 1'800'000'000;
const QString token(30, u't');
const QString user(30, u'u');
const QString serverToken(32, u's');
const QString tag(64, u'a');
const QString receipt(30, u'R');
const std::error_code success;
const std::error_code configuration = NetworkError::configuration;
const std::error_code invalidResponse = NetworkError::invalidResponse;

QByteArray printed;

void keep(QtMsgType, const QMessageLogContext &, const QString &text)
{
    printed += text.toUtf8() + '\n';
}

template<class T>
std::error_code failure(const Result<T> &result)
{
    return result ? std::error_code() : result.error();
}

template<class T>
Result<T> wait(QCoro::Task<Result<T>> task)
{
    return QCoro::waitFor(task);
}

QString text(const Meeting &meeting)
{
    return QString::fromUtf8(QJsonDocument(meeting.toJson()).toJson(QJsonDocument::Compact));
}

Meeting meeting(const QString &title, double start, const QString &link)
{
    return {.id = tag, .title = title, .start = start, .end = start + 900, .joinURL = link};
}

const Meeting budget = meeting(u"Budget & + Plan"_s, noon + 598.9, u"https://zoom.us/j/1?pwd=a+b"_s);

const QString serverState =
    uR"({"events":[%1],"acknowledged":["x"],"health":{"configured":true,"sources":{"Work":"ok"},)"_s
    uR"("snapshotAge":12.5,"delivery":"ok","scheduler":true,"directSources":2,"later":0}})"_s.arg(
        text(budget));

} // namespace

class NetworkTest final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void anAlertRepeatsAndTheTestRingsOnce();
    void anAlertFitsTheService_data();
    void anAlertFitsTheService();
    void theServicesAnswerIsJudged();
    void messagesAreAskedAboutAndStopped();
    void whatIsMalformedIsNotSent();
    void withoutCredentialsNothingIsSent_data();
    void withoutCredentialsNothingIsSent();
    void theServerIsToldAndAsked();
    void anAddressIsAppendedTo();
    void aStateIsReadStrictly();
    void theFirstCertificateFileCounts();
    void anEndedNetworkSendsNothing();
    void nothingSecretIsPrinted();

private:
    std::unique_ptr<HttpsPeer> peer;
    std::unique_ptr<MemorySecrets> store;
    std::unique_ptr<Secrets> secrets;
    QString address;
    std::unique_ptr<Network> network;
};

void NetworkTest::init()
{
    peer = std::make_unique<HttpsPeer>(u"pinned"_s);
    peer->tell({{u"body"_s, u"{\"status\":1,\"ok\":true,\"acknowledged\":1,\"expired\":0}"_s}});
    store = std::make_unique<MemorySecrets>();
    store->values = {{Secrets::pushoverUser, user.toUtf8()},
                     {Secrets::pushoverToken, token.toUtf8()},
                     {Secrets::serverToken, serverToken.toUtf8()}};
    secrets = std::make_unique<Secrets>(*store);
    address = peer->url().toString() + u"/base"_s;
    network = std::make_unique<Network>(NetworkSetup{
        .secrets = *secrets,
        .serverAddress = [this] { return address; },
        .now = [] { return noon; },
        .trust = ServerTrust([] { return HttpsPeer::der(u"pinned"_s); }),
        .phoneService = peer->url(),
    });
}

void NetworkTest::anAlertRepeatsAndTheTestRingsOnce()
{
    Meeting unlinked = budget;
    unlinked.joinURL.reset();
    QVERIFY(wait(network->push(budget, PushKind::alert)));
    QVERIFY(wait(network->push(unlinked, PushKind::test)));
    const QString line = u"POST /1/messages.json application/x-www-form-urlencoded "_s;
    const QString credentials = u"&token="_s + token + u"%1&user="_s + user;
    const QString link = u"&url=https%3A%2F%2Fzoom.us%2Fj%2F1%3Fpwd%3Da%2Bb&url_title=Join%20meeting"_s;
    const QStringList expected{
        line + u"expire=600&message=Budget%20%26%20%2B%20Plan&priority=2&retry=30&sound=persistent&tags="_s +
            tag + u"&title=Meeting%20in%20598%20seconds"_s + QString(credentials).replace(u"%1"_s, link),
        line + u"message=Your%20own%20meeting%20reminders%20are%20connected.&priority=1&sound=persistent"_s +
            u"&title=Quorvane%20test"_s + QString(credentials).remove(u"%1"_s)};
    QCOMPARE(peer->requests(), expected);
}

void NetworkTest::anAlertFitsTheService_data()
{
    QTest::addColumn<Meeting>("alert");
    QTest::addColumn<QString>("field");
    QTest::addColumn<QString>("value");
    const auto row = [](const Meeting &alert, const QString &field, const QString &value) {
        QTest::addRow("%s, %s", qPrintable(field), qPrintable(value.left(60))) << alert << field << value;
    };
    row(meeting(u"half an hour ahead"_s, noon + 1800, {}), u"expire"_s, u"600"_s);
    row(meeting(u"100 seconds ahead"_s, noon + 100, {}), u"expire"_s, u"220"_s);
    row(meeting(u"begun"_s, noon - 30, {}), u"expire"_s, u"120"_s);
    row(meeting(u"begun"_s, noon - 0.5, {}), u"title"_s, u"Meeting in 0 seconds"_s);
    row(meeting(u"in ages"_s, 9e18, {}), u"title"_s, u"Meeting in 8999999998200000512 seconds"_s);
    const QString accented = u"e\u0301"_s;
    const QString family = u"\U0001F468\u200D\U0001F469\u200D\U0001F467\u200D\U0001F466"_s; // 7 code points
    row(meeting(QString(1000, u'x'), noon, {}), u"message"_s, QString(800, u'x'));
    row(meeting(accented.repeated(500), noon, {}), u"message"_s, accented.repeated(500));
    row(meeting(family.repeated(200), noon, {}), u"message"_s, family.repeated(146));
    row(meeting(u" \n"_s, noon, {}), u"message"_s, u"Meeting"_s);
    const QString longest = u"https://zoom.us/j/"_s.leftJustified(512, u'1');
    row(meeting({}, noon, longest), u"url"_s, longest);
    row(meeting({}, noon, longest + u'1'), u"url_title"_s, {});
    for (const QString &link :
         {longest + u'1', u"http://a"_s, u"zoommtg://a"_s, u"HTTPS://a"_s, u"https://b@a"_s})
        row(meeting({}, noon, link), u"url"_s, {});
}

void NetworkTest::anAlertFitsTheService()
{
    QFETCH(Meeting, alert);
    QFETCH(QString, field);
    QFETCH(QString, value);
    QVERIFY(wait(network->push(alert, PushKind::alert)));
    const QUrlQuery form(peer->requests().value(0).section(u' ', 3));
    QCOMPARE(form.queryItemValue(field, QUrl::FullyDecoded), value);
}

void NetworkTest::theServicesAnswerIsJudged()
{
    const QList<std::pair<QString, std::error_code>> answers{
        {u"{\"status\":1,\"request\":[]}"_s, success},
        {u"{\"status\":1,\"receipt\":\"r\"}"_s, success},
        {u"{\"status\":1,\"receipt\":\"%1\"}"_s.arg(receipt), success},
        {u"{\"status\":0}"_s, invalidResponse},
        {u"{}"_s, JsonError::missingKey},
        {u"{\"status\":1.5}"_s, JsonError::wrongType},
        {u"[1]"_s, JsonError::notJson},
        {QString(), JsonError::notJson}};
    for (const auto &[answer, error] : answers) {
        peer->tell({{u"body"_s, answer}});
        const Result<std::optional<QString>> result = wait(network->push(budget, PushKind::alert));
        QVERIFY2(failure(result) == error, qPrintable(answer));
        const QString expected = answer.contains(receipt) ? receipt : QString();
        QCOMPARE(result.value_or(std::nullopt).value_or(QString()), expected);
    }
    QCOMPARE(peer->requests().size(), answers.size());
}

void NetworkTest::messagesAreAskedAboutAndStopped()
{
    const ReceiptResponse acknowledged{.status = 1, .acknowledged = 1};
    QCOMPARE(wait(network->receipt(receipt)).value_or(ReceiptResponse{}), acknowledged);
    peer->tell({{u"body"_s, u"no JSON, and nobody reads it"_s}});
    QVERIFY(wait(network->cancel(receipt)));
    QVERIFY(wait(network->cancelTag(tag)));
    const QString form = u".json application/x-www-form-urlencoded token="_s + token;
    const QStringList expected{u"GET /1/receipts/"_s + receipt + u".json?token="_s + token +
                                   u" application/json"_s,
                               u"POST /1/receipts/"_s + receipt + u"/cancel"_s + form,
                               u"POST /1/receipts/cancel_by_tag/"_s + tag + form};
    QCOMPARE(peer->requests(), expected);
}

void NetworkTest::whatIsMalformedIsNotSent()
{
    const QString shortId = receipt.chopped(1);
    for (const QString &id :
         {QString(), shortId, receipt + u'1', receipt + u'\n', shortId + u'/', shortId + u'\u0663'}) {
        QCOMPARE(failure(wait(network->receipt(id))), invalidResponse);
        QCOMPARE(failure(wait(network->cancel(id))), invalidResponse);
    }
    for (const QString &id :
         {QString(), tag.chopped(1), tag + u'1', tag + u'\n', tag.chopped(1) + u'/', tag.toUpper()})
        QCOMPARE(failure(wait(network->cancelTag(id))), invalidResponse);
    for (const double start : {std::numeric_limits<double>::quiet_NaN(), -1e30, 1e19})
        QCOMPARE(failure(wait(network->push(meeting({}, start, {}), PushKind::alert))), configuration);
    QCOMPARE(peer->connections(), 0);
}

void NetworkTest::withoutCredentialsNothingIsSent_data()
{
    QTest::addColumn<QString>("account");
    QTest::addColumn<QByteArray>("value");
    for (const QString account : {Secrets::pushoverToken, Secrets::pushoverUser, Secrets::serverToken}) {
        for (const int length : {0, 29, 31})
            QTest::addRow("%s of %d", qPrintable(account), length) << account << QByteArray(length, 'x');
    }
    QTest::newRow("a line break") << QString(Secrets::serverToken) << QByteArray(40, 's') + "\nX: y";
}

void NetworkTest::withoutCredentialsNothingIsSent()
{
    QFETCH(QString, account);
    QFETCH(QByteArray, value);
    store->values[account] = value;
    const bool isForServer = account == Secrets::serverToken;
    QCOMPARE(failure(wait(network->state())) == configuration, isForServer);
    QCOMPARE(failure(wait(network->push(budget, PushKind::test))) == configuration, !isForServer);
    QCOMPARE(failure(wait(network->cancelTag(tag))) == configuration, account == Secrets::pushoverToken);
    QCOMPARE(peer->connections(), account == Secrets::pushoverToken ? 1 : 2); // of the two that need no such
}

void NetworkTest::theServerIsToldAndAsked()
{
    peer->tell({{u"path"_s, u"/base/state"_s}, {u"body"_s, serverState}});
    const ServerHealth health{.configured = true,
                              .sources = {{u"Work"_s, u"ok"_s}},
                              .snapshotAge = 12.5,
                              .delivery = u"ok"_s,
                              .scheduler = true,
                              .directSources = 2};
    const ServerState expected{.events = {budget}, .acknowledged = {u"x"_s}, .health = health};
    QCOMPARE(wait(network->state()).value_or(ServerState{}), expected);
    QVERIFY(wait(network->snapshot({budget})).value_or(OKResponse{}).ok);
    QVERIFY(wait(network->removeSnapshot()).value_or(OKResponse{}).ok);
    QVERIFY(wait(network->ack(tag)).value_or(OKResponse{}).ok);
    QVERIFY(wait(network->pushover(token, user)).value_or(OKResponse{}).ok);
    peer->tell({{u"body"_s, u"{\"ok\":false}"_s}});
    QVERIFY(!wait(network->test()).value_or(OKResponse{.ok = true}).ok);

    const QString head = u" application/json Bearer "_s + serverToken;
    const QStringList requests{
        u"GET /base/state"_s + head,
        u"POST /base/snapshot"_s + head + u" {\"events\":["_s + text(budget) + u"]}"_s,
        u"POST /base/snapshot"_s + head + u" {\"events\":[]}"_s,
        u"POST /base/ack"_s + head + u" {\"id\":\""_s + tag + u"\"}"_s,
        u"POST /base/pushover"_s + head + u" {\"token\":\""_s + token + u"\",\"user\":\""_s + user + u"\"}"_s,
        u"POST /base/test"_s + head + u" {\"allDay\":false,\"calendar\":\"\",\"cancelled\":false,"_s +
            u"\"end\":1800000000,\"id\":\"test\",\"source\":\"manual\",\"start\":1800000000,\"title\":\"Test\"}"_s};
    QCOMPARE(peer->requests(), requests);
}

void NetworkTest::anAddressIsAppendedTo()
{
    for (const QString &good : {u"https://a.org"_s, u"https://a.org/"_s, u"https://[::1]:8443/a%2Fb/c"_s}) {
        address = good;
        const QUrl expected(good + (good.endsWith(u'/') ? u"state"_s : u"/state"_s));
        QCOMPARE(network->serverURL(u"state"_s).value_or(QUrl()).toEncoded(), expected.toEncoded());
    }
    for (const auto *bad : {"", "a.org", "http://a.org", "HTTPS://a.org", "https://", "https:///a", "https:a",
                            "https://a.org?", "https://a.org/?b=c", "https://a.org#", "https://me@a.org",
                            "https://me:x@a.org", "https://@a.org", " https://a.org", "https://a b/"}) {
        address = QString::fromLatin1(bad);
        QVERIFY2(failure(wait(network->state())) == configuration, bad);
    }
}

void NetworkTest::aStateIsReadStrictly()
{
    const auto failureWith = [](const QString &instead, const QString &part) {
        return failure(ServerState::fromJson(QString(serverState).replace(part, instead).toUtf8()));
    };
    QCOMPARE(failureWith(u"other"_s, u"snapshotAge"_s), success);
    QCOMPARE(failureWith(u"null"_s, u"12.5"_s), success);
    for (const QString &key : {u"configured"_s, u"sources"_s, u"delivery"_s, u"scheduler"_s,
                               u"directSources"_s, u"events"_s, u"acknowledged"_s, u"health"_s, u"title"_s})
        QCOMPARE(failureWith(u"\"other\""_s, u'"' + key + u'"'), JsonError::missingKey);
    QCOMPARE(failureWith(u"\"12.5\""_s, u"12.5"_s), JsonError::wrongType);
    QCOMPARE(failureWith(u"[1]"_s, u"[\"x\"]"_s), JsonError::wrongType);
    QCOMPARE(failureWith(u"1}"_s, u"\"ok\"}"_s), JsonError::wrongType);
    QCOMPARE(failureWith(u"[\"x\",{"_s, u"[{"_s), JsonError::wrongType);
    QCOMPARE(failureWith(u":2.5,"_s, u":2,"_s), JsonError::wrongType);
}

void NetworkTest::theFirstCertificateFileCounts()
{
    const QTemporaryDir home;
    const QStringList folders{home.filePath(u"a"_s), home.filePath(u"b"_s)};
    QCOMPARE(PinnedCertificate::find(folders), QByteArray());
    for (const QString &folder : {folders.at(1), folders.at(0)}) {
        QFile file(folder + u"/quorvane-server.cer"_s);
        QVERIFY(QDir().mkpath(folder) && file.open(QIODevice::WriteOnly) && file.write(folder.toUtf8()) > 0);
        file.close();
        QCOMPARE(PinnedCertificate::find(folders), folder.toUtf8());
    }
    QVERIFY(QFile::remove(folders.at(0) + u"/quorvane-server.cer"_s));
    QVERIFY(QDir().mkpath(folders.at(0) + u"/quorvane-server.cer"_s)); // no file
    QCOMPARE(PinnedCertificate::find(folders), QByteArray());
}

void NetworkTest::anEndedNetworkSendsNothing()
{
    store->hold.start();
    auto push = network->push(budget, PushKind::alert);
    auto state = network->state();
    network.reset();
    store->hold.finish();
    const std::error_code cancelled = transportError(QNetworkReply::OperationCanceledError);
    QCOMPARE(failure(QCoro::waitFor(push)), cancelled);
    QCOMPARE(failure(QCoro::waitFor(state)), cancelled);
    QCOMPARE(peer->connections(), 0);
}

void NetworkTest::nothingSecretIsPrinted()
{
    const QtMessageHandler former = qInstallMessageHandler(keep);
    for (const QString &rules : {QString(), u"*=true"_s}) {
        QCOMPARE(printed, QByteArray()); // without rules nothing at all
        QLoggingCategory::setFilterRules(rules);
        for (const QString &fault : {QString(), u"drop"_s, u"garbage"_s}) {
            peer->tell({{u"fault"_s, fault}});
            (void)wait(network->push(budget, PushKind::alert));
            (void)wait(network->receipt(receipt));
            (void)wait(network->snapshot({budget}));
        }
        HttpsPeer stranger(u"homemade"_s);
        address = stranger.url().toString();
        (void)wait(network->state());
    }
    QLoggingCategory::setFilterRules({});
    qInstallMessageHandler(former);
    for (const QString &secret : {token, user, serverToken, tag, receipt, u"Budget"_s, u"zoom"_s})
        QVERIFY2(!printed.contains(secret.toUtf8()), printed);
}

QTEST_GUILESS_MAIN(NetworkTest)
#include "network_test.moc"
