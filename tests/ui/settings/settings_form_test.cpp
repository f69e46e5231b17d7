// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "tests/support/ModelFixture.h"
#include "ui/settings/SettingsForm.h"

#include <QTest>

#include <memory>

using namespace Qt::StringLiterals;
using namespace quorvane;

/// The groups of settings over a real model with a keyring in memory and a settings file.
class SettingsFormTest final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void aFieldTellsItsFaultOnceTypingStops_data();
    void aFieldTellsItsFaultOnceTypingStops();
    void aFaultGoesAsSoonAsItIsMended();
    void phoneCredentialsGoToTheKeyring_data();
    void phoneCredentialsGoToTheKeyring();
    void aServerIsSaved_data();
    void aServerIsSaved();
    void aFailedSaveLosesNothing();
    void lateHintsLeaveWhatIsTypedAlone();
    void oneActionRunsAtATime();
    void aSuccessLeavesAndAProblemStays();
    void removingTheScheduleAsksFirst();
    void switchesTakeEffectAtOnce();
    void theStatusIsToldWhereItIsTrue();
    void alertsArePausedFromHereToo();

private:
    static constexpr double noon = ModelFixture::noon;
    [[nodiscard]] FormField *field(const QString &name) const;
    [[nodiscard]] QString kept(QLatin1StringView account) const;
    void passSeconds(int seconds);

    std::unique_ptr<ModelFixture> f;
    std::unique_ptr<SettingsForm> form;
};

namespace {

const QString storedKey = QString(26, u'u') + u"u7Qe"_s;
const QString newKey = QString(30, u'N');
const QString newToken = QString(32, u'S');

} // namespace

void SettingsFormTest::init()
{
    f = std::make_unique<ModelFixture>();
    f->keyring.values = {{Secrets::pushoverUser, storedKey.toUtf8()}};
    f->start();
    form = std::make_unique<SettingsForm>(*f->model, nullptr);
    form->reload();
    QTRY_COMPARE(form->phone()->userKey()->hint(), u"u7Qe"_s);
}

void SettingsFormTest::cleanup()
{
    form.reset();
    f.reset();
}

FormField *SettingsFormTest::field(const QString &name) const
{
    const QHash<QString, FormField *> fields{{u"user key"_s, form->phone()->userKey()},
                                             {u"application token"_s, form->phone()->token()},
                                             {u"address"_s, form->server()->address()},
                                             {u"access token"_s, form->server()->token()}};
    return fields.value(name);
}

QString SettingsFormTest::kept(QLatin1StringView account) const
{
    return QString::fromUtf8(f->keyring.values.value(account));
}

void SettingsFormTest::passSeconds(int seconds)
{
    for (int second = 0; second < seconds; ++second)
        f->tickAt(f->clock.time + 1);
}

void SettingsFormTest::aFieldTellsItsFaultOnceTypingStops_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("fault");
    const QString user = u"A user key has 30 letters and digits."_s;
    const QString application = u"An application token has 30 letters and digits."_s;
    const QString access = u"An access token has at least 32 characters."_s;
    const QString address = u"Use an HTTPS address without user name, password, query or fragment."_s;
    QTest::newRow("one short") << u"user key"_s << QString(29, u'a') << user;
    QTest::newRow("one long") << u"user key"_s << QString(31, u'a') << user;
    QTest::newRow("a key") << u"user key"_s << QString(30, u'a') << QString();
    QTest::newRow("a key with blanks around") << u"user key"_s << u" %1\n"_s.arg(newKey) << QString();
    QTest::newRow("a dash") << u"application token"_s << QString(29, u'a') + u'-' << application;
    QTest::newRow("no ASCII letter") << u"application token"_s << QString(30, u'é') << application;
    QTest::newRow("31 characters") << u"access token"_s << QString(31, u'a') << access;
    QTest::newRow("32 characters") << u"access token"_s << QString(32, u'a') << QString();
    QTest::newRow("not encrypted") << u"address"_s << u"http://localhost:1"_s << address;
    QTest::newRow("with a user") << u"address"_s << u"https://me@localhost:1"_s << address;
    QTest::newRow("with a path") << u"address"_s << u"https://localhost:1/q"_s << QString();
}

void SettingsFormTest::aFieldTellsItsFaultOnceTypingStops()
{
    QFETCH(QString, name);
    QFETCH(QString, text);
    QFETCH(QString, fault);
    FormField *edited = field(name);
    const bool isOfPhone = name == u"user key" || name == u"application token";
    edited->edit(text);
    QCOMPARE(isOfPhone ? form->phone()->canSave() : form->server()->canSave(), fault.isEmpty());
    QCOMPARE(edited->error(), QString());
    passSeconds(2);
    QCOMPARE(edited->error(), fault);
}

void SettingsFormTest::aFaultGoesAsSoonAsItIsMended()
{
    FormField *key = form->phone()->userKey();
    key->edit(u"a"_s);
    key->leave();
    QVERIFY(!key->error().isEmpty());
    key->edit(newKey);
    QCOMPARE(key->error(), QString());
    key->edit(QString());
    QVERIFY(!key->isEdited());
}

void SettingsFormTest::phoneCredentialsGoToTheKeyring_data()
{
    using Edit = std::function<void(FormField &)>;
    QTest::addColumn<Edit>("edit");
    QTest::addColumn<QString>("kept");
    QTest::addColumn<QString>("hint");
    const Edit type = [](FormField &key) { key.edit(u"  %1 "_s.arg(newKey)); };
    const Edit clear = [](FormField &key) { key.clear(); };
    const Edit leaveBlank = [](FormField &key) { key.edit(u"  "_s); };
    const Edit thinkBetter = [](FormField &key) {
        key.clear();
        key.edit(QString());
    };
    QTest::newRow("typed") << type << newKey << u"NNNN"_s;
    QTest::newRow("cleared") << clear << QString() << QString();
    QTest::newRow("blank") << leaveBlank << storedKey << u"u7Qe"_s;
    QTest::newRow("cleared and left") << thinkBetter << storedKey << u"u7Qe"_s;
}

void SettingsFormTest::phoneCredentialsGoToTheKeyring()
{
    QFETCH(std::function<void(FormField &)>, edit);
    QFETCH(QString, kept);
    QFETCH(QString, hint);
    PhoneSettings *phone = form->phone();
    edit(*phone->userKey());
    phone->token()->edit(QString(30, u'T'));
    phone->save();
    QTRY_COMPARE(phone->actions()->outcome(), u"Credentials saved in macOS Keychain."_s);
    QCOMPARE(this->kept(Secrets::pushoverUser), kept);
    QCOMPARE(this->kept(Secrets::pushoverToken), QString(30, u'T'));
    QCOMPARE(phone->userKey()->hint(), hint);
    QCOMPARE(phone->token()->hint(), u"TTTT"_s);
    QCOMPARE(phone->token()->text(), QString());
    QVERIFY(!phone->isEdited());
}

void SettingsFormTest::aServerIsSaved_data()
{
    QTest::addColumn<QString>("address");
    QTest::addColumn<QString>("kept");
    QTest::newRow("an address") << u" https://localhost:1 "_s << u"https://localhost:1"_s;
    QTest::newRow("none") << QString() << QString();
}

void SettingsFormTest::aServerIsSaved()
{
    QFETCH(QString, address);
    QFETCH(QString, kept);
    ServerSettings *server = form->server();
    server->address()->edit(address);
    server->token()->edit(newToken);
    server->save();
    QTRY_VERIFY(!server->actions()->isRunning());
    QVERIFY2(!server->actions()->hasFailed(), server->actions()->outcome().toUtf8());
    QCOMPARE(f->preferences.serverURL(), kept);
    QCOMPARE(this->kept(Secrets::serverToken), newToken);
    QCOMPARE(server->address()->text(), kept);
    QCOMPARE(server->token()->text(), QString());
    QCOMPARE(server->canTest(), !kept.isEmpty());
}

void SettingsFormTest::aFailedSaveLosesNothing()
{
    ServerSettings *server = form->server();
    const QString tooLong(Secrets::longest + 1, u'S');
    server->token()->edit(tooLong);
    server->save();
    QTRY_COMPARE(server->actions()->outcome(), u"Keychain could not save the credentials."_s);
    QVERIFY(server->actions()->hasFailed());
    QCOMPARE(server->token()->text(), tooLong);
    QVERIFY(server->canSave());
}

void SettingsFormTest::lateHintsLeaveWhatIsTypedAlone()
{
    FormField *token = form->phone()->token();
    token->edit(u"half"_s);
    f->keyring.values[Secrets::pushoverToken] = QByteArray(30, 'T');
    form->reload();
    QTRY_COMPARE(f->model->credentialHints().pushoverToken, u"TTTT"_s);
    QCOMPARE(token->text(), u"half"_s);
    QCOMPARE(token->hint(), QString());
    token->edit(QString());
    QCOMPARE(token->hint(), u"TTTT"_s);
}

void SettingsFormTest::oneActionRunsAtATime()
{
    PhoneSettings *phone = form->phone();
    phone->userKey()->edit(newKey);
    f->keyring.hold.start();
    phone->save();
    QVERIFY(phone->actions()->isRunning());
    QVERIFY(!phone->canSave() && !phone->canTest());
    f->keyring.values.clear();
    phone->save();
    phone->test();
    phone->userKey()->edit(QString(30, u'M'));
    f->keyring.hold.finish();
    QTRY_VERIFY(!phone->actions()->isRunning());
    QVERIFY(f->keyring.values.isEmpty());
    // What was typed meanwhile is not saved yet.
    QCOMPARE(phone->userKey()->text(), QString(30, u'M'));
    QVERIFY(phone->canSave());
}

void SettingsFormTest::aSuccessLeavesAndAProblemStays()
{
    PhoneSettings *phone = form->phone();
    phone->userKey()->edit(newKey);
    phone->save();
    QTRY_VERIFY(!phone->actions()->outcome().isEmpty());
    passSeconds(5);
    QVERIFY(!phone->actions()->outcome().isEmpty());
    passSeconds(1);
    QCOMPARE(phone->actions()->outcome(), QString());

    phone->test();
    QTRY_VERIFY(phone->actions()->hasFailed());
    passSeconds(60);
    QVERIFY(phone->actions()->hasFailed());
    phone->userKey()->edit(QString(30, u'M'));
    phone->save();
    QTRY_VERIFY(!phone->actions()->hasFailed());
}

void SettingsFormTest::removingTheScheduleAsksFirst()
{
    ServerSettings *server = form->server();
    server->setSharesSchedule(true);
    server->removeSchedule();
    server->askToRemove();
    server->keepSchedule();
    server->removeSchedule();
    QVERIFY(f->preferences.uploadMacSnapshot());
    server->askToRemove();
    QVERIFY(server->isAskingToRemove());
    server->removeSchedule();
    QVERIFY(!server->isAskingToRemove());
    QTRY_VERIFY(!server->actions()->outcome().isEmpty());
    QVERIFY(!f->preferences.uploadMacSnapshot());
}

void SettingsFormTest::switchesTakeEffectAtOnce()
{
    form->alerts()->setSoundEnabled(false);
    QVERIFY(!form->alerts()->soundEnabled());
    QVERIFY(!f->preferences.soundEnabled());
    form->server()->setSharesSchedule(true);
    QVERIFY(form->server()->sharesSchedule());
    QVERIFY(f->preferences.uploadMacSnapshot());
}

void SettingsFormTest::theStatusIsToldWhereItIsTrue()
{
    f->keyring.values[Secrets::pushoverToken] = QByteArray(30, 'T');
    form->reload();
    QTRY_COMPARE(form->phone()->status(), u"Local only. Phone delivery stops while this Mac sleeps."_s);
    QVERIFY(form->server()->note().startsWith(u"A server you run"));
    form->server()->address()->edit(u"https://localhost:1"_s);
    form->server()->token()->edit(newToken);
    form->server()->save();
    QTRY_VERIFY(form->server()->note().startsWith(u"Server unreachable."));
    QCOMPARE(form->phone()->status(), QString());
}

void SettingsFormTest::alertsArePausedFromHereToo()
{
    AlertSettings *alerts = form->alerts();
    QCOMPARE(alerts->pauseAction(), u"Pause for 5 minutes"_s);
    alerts->togglePause();
    QCOMPARE(f->model->pausedUntil()->toSecsSinceEpoch(), qint64(noon) + 300);
    QCOMPARE(alerts->pauseAction(), u"Resume now"_s);
    QVERIFY(alerts->pauseNote().startsWith(u"Paused until "));
    alerts->togglePause();
    QVERIFY(!f->model->pausedUntil());
}

QTEST_MAIN(SettingsFormTest)

#include "settings_form_test.moc"
