// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "network/linux/SecretService.h"
#include "tests/network/linux/Keyring.h"

#include <QTest>

using namespace Qt::StringLiterals;
using namespace quorvane;
using namespace std::chrono_literals;

/// Needs an X display, and types there what a person would.
class KeyringPromptTest final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void aLockedKeyringIsUnlockedForAWrite();
    void withoutAnyKeyringAWriteMakesOne();
    void aQuestionTurnedDownFailsTheWrite();
    void anUnansweredQuestionEndsTheWriteAndStays();

private:
    /// Presses the keys in the question once it is there; a word that is no key's name is typed.
    static void answer(const QStringList &keys)
    {
        type({u"search"_s, u"--sync"_s, u"--onlyvisible"_s, u"--class"_s, u"gcr-prompter"_s,
              u"windowactivate"_s, u"--sync"_s});
        for (const QString &key : keys)
            type({key == key.toLower() ? u"type"_s : u"key"_s, key});
    }
    static void type(const QStringList &arguments)
    {
        QProcess tool;
        tool.start(u"xdotool"_s, arguments);
        QVERIFY(QTest::qWaitFor([&tool] { return tool.state() == QProcess::NotRunning; }, 20'000));
    }
    static void lockWith(Keyring &keyring, const QByteArray &value)
    {
        keyring.startUnlocked();
        SecretService service(keyring.bus());
        QVERIFY(QCoro::waitFor(service.write(u"account"_s, value)));
        keyring.kill();
        keyring.startLocked();
        keyring.startPrompter();
    }
    static std::error_code errorOf(QCoro::Task<Result<void>> &&write)
    {
        const Result<void> result = QCoro::waitFor(write);
        return result ? std::error_code() : result.error();
    }
    static std::optional<QByteArray> valueIn(SecretService &service)
    {
        return QCoro::waitFor(service.read(u"account"_s)).value_or(std::nullopt);
    }
};

void KeyringPromptTest::aLockedKeyringIsUnlockedForAWrite()
{
    Keyring keyring;
    lockWith(keyring, "old");
    SecretService service(keyring.bus());
    auto write = service.write(u"account"_s, "new");
    auto secondWrite = service.write(u"other account"_s, "new too"); // waits behind the first one's question
    answer({QLatin1StringView(Keyring::password), u"Return"_s});
    QCOMPARE(errorOf(std::move(write)), std::error_code());
    QCOMPARE(errorOf(std::move(secondWrite)), std::error_code());
    QCOMPARE(valueIn(service), QByteArray("new"));
}

void KeyringPromptTest::withoutAnyKeyringAWriteMakesOne()
{
    Keyring keyring;
    keyring.startLocked();
    keyring.startPrompter();
    SecretService service(keyring.bus());
    auto write = service.write(u"account"_s, "first");
    answer({u"chosen"_s, u"Tab"_s, u"chosen"_s, u"Return"_s});
    QCOMPARE(errorOf(std::move(write)), std::error_code());
    QCOMPARE(valueIn(service), QByteArray("first"));
}

void KeyringPromptTest::aQuestionTurnedDownFailsTheWrite()
{
    Keyring keyring;
    lockWith(keyring, "old");
    SecretService service(keyring.bus());
    auto write = service.write(u"account"_s, "new");
    answer({u"Escape"_s});
    QCOMPARE(errorOf(std::move(write)), std::make_error_code(std::errc::operation_canceled));
    QVERIFY(keyring.isRunning());
}

void KeyringPromptTest::anUnansweredQuestionEndsTheWriteAndStays()
{
    Keyring keyring;
    lockWith(keyring, "old");
    SecretService service(keyring.bus(), 1s);
    QCOMPARE(errorOf(service.write(u"account"_s, "new")), std::make_error_code(std::errc::timed_out));
    answer({QLatin1StringView(Keyring::password), u"Return"_s});
    QTRY_COMPARE(valueIn(service), QByteArray("old"));
}

QTEST_GUILESS_MAIN(KeyringPromptTest)
#include "keyring_prompt_test.moc"
