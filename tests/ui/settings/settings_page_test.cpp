// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "tests/support/ModelFixture.h"
#include "tests/support/ViewPicture.h"
#include "ui/settings/SettingsForm.h"
#include "ui/settings/SettingsView.h"

#include <QAccessible>
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

/// An updater that does as it is told.
class ObedientUpdates final : public UpdateSettings
{
    Q_OBJECT

public:
    [[nodiscard]] QString version() const override { return u"Version 1.4.0 (812)"_s; }
    [[nodiscard]] bool updatesItself() const override { return true; }
    [[nodiscard]] bool automaticallyChecks() const override { return checks == Switch::on; }
    void setAutomaticallyChecks(Switch wanted) override { checks = wanted; }
    [[nodiscard]] bool automaticallyDownloads() const override { return false; }
    void setAutomaticallyDownloads(Switch) override {}
    [[nodiscard]] bool canDownloadAutomatically() const override { return checks == Switch::on; }
    [[nodiscard]] bool canCheckForUpdates() const override { return true; }
    void checkNow() override { ++asked; }
    [[nodiscard]] QString keeper() const override { return {}; }
    [[nodiscard]] Phase phase() const override { return Phase::idle; }
    [[nodiscard]] QString headline() const override { return {}; }
    [[nodiscard]] QString notes() const override { return {}; }
    [[nodiscard]] double progress() const override { return 0; }
    void install() override {}
    void stop() override {}

    Switch checks = Switch::on;
    int asked = 0;
};

} // namespace

/// The page in a window. With QUORVANE_PICTURES it leaves pictures of what it saw in that folder.
class SettingsPageTest final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void everyWindowHoldsEveryWord_data();
    void everyWindowHoldsEveryWord();
    void tabGoesDownTheLeftColumnThenTheRight();
    void aCredentialIsTypedAndSaved();
    void theQuestionBeforeRemovingIsAnsweredByKeys();
    void whatGetsTheKeyboardIsInSight();
    void anUpdaterIsTold();

private:
    void open(QSize size, Switch dark = Switch::on);
    void keepPicture();
    void press(Qt::Key key) { QTest::keyClick(&picture->view, key); }
    void type(const QByteArray &letters);
    /// Presses Tab until the keyboard is at the control of this name.
    void tabTo(const QString &name);
    /// The name by which a screen reader calls the control that has the keyboard.
    [[nodiscard]] QString current() const;

    ObedientUpdates updates;
    std::unique_ptr<ModelFixture> f;
    std::unique_ptr<SettingsForm> form;
    std::unique_ptr<ViewPicture> picture;
};

void SettingsPageTest::init()
{
    f = std::make_unique<ModelFixture>();
    f->keyring.values = {{Secrets::pushoverUser, QByteArray(26, 'u') + "u7Qe"},
                         {Secrets::serverToken, QByteArray(36, 's') + "9f2c"}};
    f->addSetting(u"[General]\nserverURL=https://localhost:1\nuploadMacSnapshot=true"_s);
    f->start();
    form = std::make_unique<SettingsForm>(*f->model, nullptr);
}

void SettingsPageTest::cleanup()
{
    picture.reset();
    form.reset();
    f.reset();
}

void SettingsPageTest::open(QSize size, Switch dark)
{
    picture = std::make_unique<ViewPicture>(dark);
    SettingsView::registerTypes();
    picture->view.setColor(dark == Switch::on ? QColor(0x12, 0x10, 0x0d) : QColor(0xfa, 0xf7, 0xf2));
    QVERIFY(picture->show(QUrl(u"qrc:/Quorvane/Settings/SettingsPage.qml"_s), size,
                          {{u"settings"_s, QVariant::fromValue(form.get())}}));
}

void SettingsPageTest::keepPicture()
{
    const QString folder = qEnvironmentVariable("QUORVANE_PICTURES");
    if (!folder.isEmpty())
        picture->image().save(
            u"%1/settings-%2.png"_s.arg(folder, QLatin1StringView(QTest::currentDataTag())));
}

QString SettingsPageTest::current() const
{
    const auto *face = QAccessible::queryAccessibleInterface(picture->view.activeFocusItem());
    return face ? face->text(QAccessible::Name) : QString();
}

void SettingsPageTest::type(const QByteArray &letters)
{
    for (const char letter : letters)
        QTest::keyClick(&picture->view, letter);
}

void SettingsPageTest::tabTo(const QString &name)
{
    for (int step = 0; step < 30 && current() != name; ++step)
        press(Qt::Key_Tab);
    QCOMPARE(current(), name);
}

void SettingsPageTest::everyWindowHoldsEveryWord_data()
{
    QTest::addColumn<QSize>("page");
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
    QFETCH(QSize, page);
    QFETCH(Switch, dark);
    QFETCH(Switch, longWords);
    const LongWords translator;
    if (longWords == Switch::on)
        QCoreApplication::installTranslator(const_cast<LongWords *>(&translator));
    form = std::make_unique<SettingsForm>(*f->model, nullptr);
    open(page, dark);
    form->phone()->token()->edit(u"azGDORePK8gM"_s);
    form->phone()->token()->leave();
    form->server()->askToRemove();
    QTRY_COMPARE(form->phone()->userKey()->hint(), u"u7Qe"_s);
    keepPicture();
    const auto items = picture->view.rootObject()->findChildren<QQuickItem *>();
    for (QQuickItem *item : items) {
        if (!item->isVisible() || !item->inherits("QQuickText"))
            continue;
        const QByteArray words = item->property("text").toString().toUtf8();
        QVERIFY2(!item->property("truncated").toBool(), words);
        const QRectF area = ViewPicture::area(item);
        QVERIFY2(area.left() >= 0 && area.right() <= page.width(), words);
    }
}

void SettingsPageTest::tabGoesDownTheLeftColumnThenTheRight()
{
    open({884, 780});
    QTRY_COMPARE(form->phone()->userKey()->hint(), u"u7Qe"_s);
    QStringList visited;
    for (press(Qt::Key_Tab); !visited.contains(current()); press(Qt::Key_Tab))
        visited.append(current());
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
    f->keyring.values.remove(Secrets::serverToken);
    open({884, 780});
    tabTo(u"Application token"_s);
    type(QByteArray(29, 'T'));
    press(Qt::Key_Return);
    QVERIFY(!form->phone()->token()->error().isEmpty());
    press(Qt::Key_Tab);
    QCOMPARE(current(), u"Send test"_s); // a fault leaves nothing to save
    press(Qt::Key_Backtab);
    press(Qt::Key_End);
    type("T");
    press(Qt::Key_Return);
    QTRY_COMPARE(f->keyring.values.value(Secrets::pushoverToken), QByteArray(30, 'T'));
    QTRY_COMPARE(form->phone()->token()->hint(), u"TTTT"_s);
    QCOMPARE(current(), u"Application token"_s);
    QCOMPARE(picture->view.activeFocusItem()->property("text").toString(), QString());
}

void SettingsPageTest::theQuestionBeforeRemovingIsAnsweredByKeys()
{
    open({884, 780});
    tabTo(u"Remove shared schedule"_s);
    press(Qt::Key_Space);
    QCOMPARE(current(), u"Keep it"_s);
    press(Qt::Key_Escape);
    QCOMPARE(current(), u"Remove shared schedule"_s);
    QVERIFY(!form->server()->isAskingToRemove());
    press(Qt::Key_Space);
    press(Qt::Key_Tab);
    QCOMPARE(current(), u"Remove shared schedule"_s);
    press(Qt::Key_Space);
    QTRY_VERIFY(!form->server()->sharesSchedule());
    QTRY_VERIFY(form->server()->canTest());
    QCOMPARE(current(), u"Remove shared schedule"_s);
}

void SettingsPageTest::whatGetsTheKeyboardIsInSight()
{
    open({648, 620});
    for (const QString &name : {u"Send test"_s, u"Play a sound until I respond"_s}) {
        tabTo(name);
        const QRectF area = ViewPicture::area(picture->view.activeFocusItem());
        QVERIFY2(area.top() >= 0 && area.bottom() <= 620, name.toUtf8());
    }
}

void SettingsPageTest::anUpdaterIsTold()
{
    form = std::make_unique<SettingsForm>(*f->model, &updates);
    open({884, 780});
    tabTo(u"Check for Updates"_s);
    press(Qt::Key_Return);
    QCOMPARE(updates.asked, 1);
    tabTo(u"Check for updates automatically"_s);
    press(Qt::Key_Space);
    QCOMPARE(updates.checks, Switch::off);
    Q_EMIT updates.changed();
    press(Qt::Key_Tab);
    QCOMPARE(current(), u"Check for Updates"_s);
}

QTEST_MAIN(SettingsPageTest)

#include "settings_page_test.moc"
