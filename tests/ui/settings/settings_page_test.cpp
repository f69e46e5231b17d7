// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "tests/ui/settings/SettingsWindow.h"

#include <QTest>
#include <QTranslator>

#include <memory>

using namespace Qt::StringLiterals;
using namespace quorvane;

namespace {

/// A language whose words are longer by half.
class LongWords final : public QTranslator
{
    Q_OBJECT

public:
    [[nodiscard]] QString translate(const char *, const char *source, const char *, int) const override
    {
        const QString text = QString::fromUtf8(source);
        return text + u' ' + text.left(text.size() / 2);
    }
    [[nodiscard]] bool isEmpty() const override { return false; }
};

} // namespace

/// The page in a window. With QUORVANE_PICTURES it leaves pictures of what it saw in that folder.
class SettingsPageTest final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { page = std::make_unique<SettingsWindow>(); }
    void cleanup() { page.reset(); }

    void everyWindowHoldsEveryWord_data();
    void everyWindowHoldsEveryWord();
    void tabGoesDownTheLeftColumnThenTheRight();
    void aCredentialIsTypedAndSaved();
    void theQuestionBeforeRemovingIsAnsweredByKeys();
    void whatGetsTheKeyboardIsInSight();

private:
    std::unique_ptr<SettingsWindow> page;
};

void SettingsPageTest::everyWindowHoldsEveryWord_data()
{
    QTest::addColumn<QSize>("size");
    QTest::addColumn<Switch>("dark");
    QTest::addColumn<Switch>("longWords");
    QTest::newRow("dark") << QSize(1100 - 216, 780) << Switch::on << Switch::off;
    QTest::newRow("light") << QSize(1100 - 216, 780) << Switch::off << Switch::off;
    QTest::newRow("narrow") << QSize(820 - 72, 1120) << Switch::on << Switch::off;
    QTest::newRow("minimum") << QSize(720 - 72, 620) << Switch::off << Switch::off;
    QTest::newRow("wide") << QSize(1920 - 216, 1080) << Switch::off << Switch::off;
    QTest::newRow("long-words") << QSize(1100 - 216, 1400) << Switch::off << Switch::on;
    QTest::newRow("long-words-minimum") << QSize(720 - 72, 1900) << Switch::on << Switch::on;
}

void SettingsPageTest::everyWindowHoldsEveryWord()
{
    QFETCH(QSize, size);
    QFETCH(Switch, dark);
    QFETCH(Switch, longWords);
    const LongWords translator;
    if (longWords == Switch::on)
        QCoreApplication::installTranslator(const_cast<LongWords *>(&translator));
    page->open(size, dark);
    page->form->phone()->token()->edit(u"azGDORePK8gM"_s);
    page->form->phone()->token()->leave();
    page->form->server()->askToRemove();
    QTRY_COMPARE(page->form->phone()->userKey()->hint(), u"u7Qe"_s);
    page->keepPicture();
    page->checkEveryWord();
}

void SettingsPageTest::tabGoesDownTheLeftColumnThenTheRight()
{
    page->open({884, 780});
    QTRY_COMPARE(page->form->phone()->userKey()->hint(), u"u7Qe"_s);
    QStringList visited;
    for (page->press(Qt::Key_Tab); !visited.contains(page->current()); page->press(Qt::Key_Tab))
        visited.append(page->current());
    const QStringList left{u"Play a sound until I respond"_s,
                           u"Preview alert"_s,
                           u"Pause for 5 minutes"_s,
                           u"HTTPS server address"_s,
                           u"Server access token"_s,
                           u"Clear Server access token"_s,
                           u"Share my alert schedule"_s,
                           u"Save"_s,
                           u"Test the server"_s,
                           u"Remove shared schedule"_s};
    const QStringList right{u"Pushover user key"_s, u"Clear Pushover user key"_s, u"Application token"_s,
                            u"Send test"_s};
    QCOMPARE(visited, left + right);
}

void SettingsPageTest::aCredentialIsTypedAndSaved()
{
    page->f.keyring.values.remove(Secrets::serverToken);
    page->open({884, 780});
    page->tabTo(u"Application token"_s);
    page->type(QByteArray(29, 'T'));
    page->press(Qt::Key_Return);
    QVERIFY(!page->form->phone()->token()->error().isEmpty());
    page->press(Qt::Key_Tab);
    QCOMPARE(page->current(), u"Send test"_s); // a fault leaves nothing to save
    page->press(Qt::Key_Backtab);
    page->press(Qt::Key_End);
    page->type("T");
    page->press(Qt::Key_Return);
    QTRY_COMPARE(page->f.keyring.values.value(Secrets::pushoverToken), QByteArray(30, 'T'));
    QTRY_COMPARE(page->form->phone()->token()->hint(), u"TTTT"_s);
    QCOMPARE(page->current(), u"Application token"_s);
    QCOMPARE(page->picture->view.activeFocusItem()->property("text").toString(), QString());
}

void SettingsPageTest::theQuestionBeforeRemovingIsAnsweredByKeys()
{
    page->open({884, 780});
    page->tabTo(u"Remove shared schedule"_s);
    page->press(Qt::Key_Space);
    QCOMPARE(page->current(), u"Keep it"_s);
    page->press(Qt::Key_Escape);
    QCOMPARE(page->current(), u"Remove shared schedule"_s);
    QVERIFY(!page->form->server()->isAskingToRemove());
    page->press(Qt::Key_Space);
    page->press(Qt::Key_Tab);
    QCOMPARE(page->current(), u"Remove shared schedule"_s);
    page->press(Qt::Key_Space);
    QTRY_VERIFY(!page->form->server()->sharesSchedule());
    QTRY_VERIFY(page->form->server()->canTest());
    QCOMPARE(page->current(), u"Remove shared schedule"_s);
}

void SettingsPageTest::whatGetsTheKeyboardIsInSight()
{
    page->open({648, 620});
    for (const QString &name : {u"Send test"_s, u"Play a sound until I respond"_s}) {
        page->tabTo(name);
        const QRectF area = ViewPicture::area(page->picture->view.activeFocusItem());
        QVERIFY2(area.top() >= 0 && area.bottom() <= 620, name.toUtf8());
    }
}

QTEST_MAIN(SettingsPageTest)

#include "settings_page_test.moc"
