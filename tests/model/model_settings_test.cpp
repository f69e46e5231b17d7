// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "tests/support/PhoneFixture.h"

#include <QSignalSpy>
#include <QTest>

#include <memory>

using namespace Qt::StringLiterals;
using namespace quorvane;

using State = PhoneHealth::State;

/// What the settings ask of the model.
class ModelSettingsTest final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { f = std::make_unique<PhoneFixture>(); }
    void cleanup() { f.reset(); }

    void credentialsAreStoredInOrderUntilOneFails();
    void onlyTheEndOfACredentialIsShown_data();
    void onlyTheEndOfACredentialIsShown();
    void theServerGetsThePhonesCredentials_data();
    void theServerGetsThePhonesCredentials();
    void onlyAnAddressOfUseIsStored_data();
    void onlyAnAddressOfUseIsStored();
    void aServerThatIsSavedIsAskedAtOnce();
    void aTokenThatIsNotStoredLeavesTheServer();
    void aTestTellsHowItEnded_data();
    void aTestTellsHowItEnded();
    void thePhoneIsAsWellAsItsLastMessage();
    void aRemovedScheduleIsNotUploadedAgain();

private:
    static constexpr double noon = ModelFixture::noon;

    void start()
    {
        f->start();
        QTRY_VERIFY(!f->model->isRefreshing());
    }

    std::unique_ptr<PhoneFixture> f;
};

void ModelSettingsTest::credentialsAreStoredInOrderUntilOneFails()
{
    start();
    f->keyring.written.clear();
    const CredentialEdits all{u" user \n"_s, u"token"_s, u"server"_s};
    QCOMPARE(QCoro::waitFor(f->model->saveCredentials(all)),
             SettingsOutcome({NoticeKind::success, u"Credentials saved in macOS Keychain."_s}));
    QCOMPARE(f->keyring.written,
             QStringList({Secrets::pushoverUser, Secrets::pushoverToken, Secrets::serverToken}));
    QCOMPARE(f->keyring.values[Secrets::pushoverUser], "user"_qba);
    f->keyring.written.clear();
    f->keyring.refused = {Secrets::pushoverToken};
    QCOMPARE(QCoro::waitFor(f->model->saveCredentials({u"new"_s, u"new"_s, u"new"_s})),
             SettingsOutcome({NoticeKind::problem, u"Keychain could not save the credentials."_s}));
    QCOMPARE(f->keyring.written, QStringList({Secrets::pushoverUser, Secrets::pushoverToken}));
    f->keyring.written.clear();
    QCoro::waitFor(f->model->saveCredentials({.serverToken = QString()}));
    QCOMPARE(f->keyring.written, QStringList(Secrets::serverToken)); // what was not edited stays
    QCOMPARE(f->keyring.values[Secrets::serverToken], QByteArray(""));
}

void ModelSettingsTest::onlyTheEndOfACredentialIsShown_data()
{
    QTest::addColumn<QByteArray>("value");
    QTest::addColumn<std::optional<QString>>("hint");
    QTest::newRow("long") << "abcdefghijklmnopqrstuvwxyz01u7Qe"_qba << std::optional(u"u7Qe"_s);
    QTest::newRow("12 characters") << "abcdefghu7Qe"_qba << std::optional(u"u7Qe"_s);
    QTest::newRow("11 characters") << "bcdefghu7Qe"_qba << std::optional(QString());
    QTest::newRow("cleared") << QByteArray("") << std::optional<QString>();
}

void ModelSettingsTest::onlyTheEndOfACredentialIsShown()
{
    QFETCH(QByteArray, value);
    QFETCH(std::optional<QString>, hint);
    f->keyring.values = {{Secrets::serverToken, value}};
    start();
    QCoro::waitFor(f->model->loadCredentialHints());
    QVERIFY(f->model->credentialHints() == CredentialHints({.serverToken = hint}));
    f->keyring.failure = std::make_error_code(std::errc::permission_denied);
    QCoro::waitFor(f->model->loadCredentialHints()); // a locked keyring changes nothing
    QVERIFY(f->model->credentialHints() == CredentialHints({.serverToken = hint}));
}

void ModelSettingsTest::theServerGetsThePhonesCredentials_data()
{
    QTest::addColumn<bool>("hasServer");
    QTest::addColumn<int>("status");
    QTest::addColumn<bool>("isPhoneEdited");
    QTest::addColumn<int>("requests");
    QTest::addColumn<NoticeKind>("kind");
    QTest::newRow("taken") << true << 200 << true << 1 << NoticeKind::success;
    QTest::newRow("refused") << true << 500 << true << 1 << NoticeKind::problem;
    QTest::newRow("no server") << false << 200 << true << 0 << NoticeKind::success;
    QTest::newRow("nothing of the phone edited") << true << 200 << false << 0 << NoticeKind::success;
}

void ModelSettingsTest::theServerGetsThePhonesCredentials()
{
    QFETCH(bool, hasServer);
    QFETCH(int, status);
    QFETCH(bool, isPhoneEdited);
    QFETCH(int, requests);
    QFETCH(NoticeKind, kind);
    if (hasServer)
        f->useServer();
    f->server.tell({{"path"_L1, u"/pushover"_s}, {"status"_L1, status}, {"body"_L1, uR"({"ok":true})"_s}});
    start();
    CredentialEdits edits{.serverToken = QString(32, u's')};
    if (isPhoneEdited)
        edits.pushoverUser = QString(30, u'v');
    const SettingsOutcome outcome = QCoro::waitFor(f->model->saveCredentials(edits));
    QCOMPARE(outcome.kind, kind);
    QVERIFY(outcome.text.startsWith(u"Credentials saved in macOS Keychain."_s));
    QCOMPARE(f->paths(f->server).count(u"/pushover"_s), requests);
    if (requests > 0)
        QCOMPARE(f->lastBody(f->server, u"/pushover"_s),
                 uR"({"token":"%1","user":"%2"})"_s.arg(QString(30, u't'), QString(30, u'v')));
}

void ModelSettingsTest::onlyAnAddressOfUseIsStored_data()
{
    QTest::addColumn<QString>("url");
    QTest::addColumn<bool>("accepted");
    QTest::newRow("none") << QString() << true;
    QTest::newRow("plain") << u"https://a.example"_s << true;
    QTest::newRow("with a path") << u"https://a.example:8443/b"_s << true;
    QTest::newRow("blanks around it") << u" https://a.example "_s << true;
    QTest::newRow("not encrypted") << u"http://a.example"_s << false;
    QTest::newRow("with a password") << u"https://u:p@a.example"_s << false;
    QTest::newRow("with a query") << u"https://a.example?a=b"_s << false;
    QTest::newRow("no address") << u"example"_s << false;
}

void ModelSettingsTest::onlyAnAddressOfUseIsStored()
{
    QFETCH(QString, url);
    QFETCH(bool, accepted);
    start();
    QCOMPARE(f->model->acceptsServerURL(url.trimmed()), accepted);
    const SettingsOutcome outcome = QCoro::waitFor(f->model->saveServer(url, {}));
    QCOMPARE(outcome.kind, accepted ? NoticeKind::success : NoticeKind::problem);
    QCOMPARE(f->preferences.serverURL(), accepted ? url.trimmed() : QString());
    QCOMPARE(f->model->serverURL(), f->preferences.serverURL());
}

void ModelSettingsTest::aServerThatIsSavedIsAskedAtOnce()
{
    f->say(f->health());
    f->store->add(u"a"_s, noon + 100);
    start();
    QVERIFY(!f->model->serverConfigured());
    QSignalSpy changed(f->model.get(), &AppModel::settingsChanged);
    QCoro::waitFor(f->model->saveServer(f->server.url().toString(), {.serverToken = QString(32, u's')}));
    QCOMPARE(changed.size(), 1);
    QTRY_COMPARE(f->model->cloudStatus(), u"Connected"_s);
    QVERIFY(f->model->serverConfigured());
    QCoro::waitFor(f->model->saveServer(QString(), {}));
    QTRY_COMPARE(f->model->cloudStatus(), u"Local only. Phone delivery stops while this Mac sleeps."_s);
}

void ModelSettingsTest::aTokenThatIsNotStoredLeavesTheServer()
{
    start();
    QCoro::waitFor(f->model->saveServer(u"https://one.example"_s, {.serverToken = QString(32, u's')}));
    f->keyring.refused = {u"server-token"_s};
    const SettingsOutcome outcome =
        QCoro::waitFor(f->model->saveServer(u"https://two.example"_s, {.serverToken = QString(32, u't')}));
    QCOMPARE(outcome.text, u"Keychain could not save the credentials."_s);
    QCOMPARE(f->preferences.serverURL(), u"https://one.example"_s);
}

void ModelSettingsTest::aTestTellsHowItEnded_data()
{
    QTest::addColumn<QJsonObject>("answer");
    QTest::addColumn<NoticeKind>("kind");
    QTest::addColumn<State>("health");
    QTest::newRow("well") << QJsonObject{{"body"_L1, uR"({"status":1,"ok":true})"_s}} << NoticeKind::success
                          << State::ready;
    QTest::newRow("refused") << QJsonObject{{"status"_L1, 400}} << NoticeKind::problem << State::failed;
    QTest::newRow("not taken") << QJsonObject{{"body"_L1, uR"({"status":0,"ok":false})"_s}}
                               << NoticeKind::problem << State::failed;
    QTest::newRow("nonsense") << QJsonObject{{"body"_L1, u"secret <b>"_s}} << NoticeKind::problem
                              << State::failed;
    QTest::newRow("cut off") << QJsonObject{{"fault"_L1, u"drop"_s}} << NoticeKind::problem << State::failed;
}

void ModelSettingsTest::aTestTellsHowItEnded()
{
    QFETCH(QJsonObject, answer);
    QFETCH(NoticeKind, kind);
    QFETCH(State, health);
    f->useServer();
    f->phone.tell(answer);
    answer.insert("path"_L1, u"/test"_s);
    f->server.tell(answer);
    start();
    const SettingsOutcome phone = QCoro::waitFor(f->model->testPhone());
    const SettingsOutcome server = QCoro::waitFor(f->model->testServer());
    QCOMPARE(phone.kind, kind);
    QCOMPARE(server.kind, kind);
    QVERIFY(!phone.text.isEmpty() && !server.text.isEmpty());
    QVERIFY(!phone.text.contains(u"secret"_s) && !server.text.contains(u"secret"_s));
    QCOMPARE(f->model->phoneHealth().state, health);
    QCOMPARE(f->model->phoneHealth().testedAt.has_value(), health == State::ready);
    QCOMPARE(f->lastBody(f->phone, u"/1/messages.json"_s).contains(u"priority=1"_s), true);
}

void ModelSettingsTest::thePhoneIsAsWellAsItsLastMessage()
{
    const QByteArray token = f->keyring.values.take(Secrets::pushoverToken);
    f->keyring.failure = std::make_error_code(std::errc::timed_out);
    f->store->add(u"a"_s, noon + 200);
    start();
    QCOMPARE(f->model->phoneHealth().state, State::unknown);
    f->keyring.failure = {};
    f->refresh();
    QTRY_COMPARE(f->model->phoneHealth().state, State::notSetUp);
    QVERIFY(QCoro::waitFor(f->model->testPhone()).text.startsWith(u"Enter your Pushover user key"_s));
    QCOMPARE(f->model->phoneHealth().state, State::notSetUp);
    QCoro::waitFor(f->model->saveCredentials({.pushoverToken = QString::fromLatin1(token)}));
    QCOMPARE(f->model->phoneHealth().state, State::ready);
    f->phone.tell({{"path"_L1, u"/1/messages.json"_s}, {"status"_L1, 500}});
    f->tickAt(noon + 81);
    QTRY_COMPARE(f->model->phoneHealth().state, State::failed);
    f->phone.tell({{"path"_L1, u"/1/messages.json"_s}, {"body"_L1, uR"({"status":1})"_s}});
    f->tickAt(noon + 120);
    QTRY_COMPARE(f->model->phoneHealth().state, State::ready);
    QVERIFY(!f->model->phoneHealth().testedAt);
}

void ModelSettingsTest::aRemovedScheduleIsNotUploadedAgain()
{
    f->useServer();
    f->say(f->health());
    f->store->add(u"a"_s, noon + 1000);
    start();
    QCoro::waitFor(f->model->setUploadMacSnapshot(Switch::on));
    QCOMPARE(f->paths(f->server).count(u"/snapshot"_s), 1);
    QVERIFY(f->model->scheduleSynced());
    launch(f->model->refresh()); // one is under way
    const SettingsOutcome removed = QCoro::waitFor(f->model->removeSharedSchedule());
    QCOMPARE(removed.kind, NoticeKind::success);
    QCOMPARE(f->lastBody(f->server, u"/snapshot"_s), uR"({"events":[]})"_s);
    QVERIFY(!f->model->uploadMacSnapshot());
    f->refresh();
    QCOMPARE(f->lastBody(f->server, u"/snapshot"_s), uR"({"events":[]})"_s);
    f->server.tell({{"path"_L1, u"/snapshot"_s}, {"status"_L1, 500}});
    QCOMPARE(QCoro::waitFor(f->model->removeSharedSchedule()).kind, NoticeKind::problem);
}

QTEST_MAIN(ModelSettingsTest)
#include "model_settings_test.moc"
