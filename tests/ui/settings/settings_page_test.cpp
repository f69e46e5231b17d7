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
    void checkNow() override { asked << u"check"_s; }
    [[nodiscard]] QString keeper() const override { return {}; }
    [[nodiscard]] Phase phase() const override { return m_phase; }
    [[nodiscard]] QString headline() const override { return m_headline; }
    [[nodiscard]] QString notes() const override { return m_notes; }
    [[nodiscard]] double progress() const override { return m_progress; }
    void install() override { asked << u"install"_s; }
    void stop() override { asked << u"stop"_s; }

    void enter(Phase phase, const QString &headline, const QString &notes = {}, double progress = 0)
    {
        m_phase = phase;
        m_headline = headline;
        m_notes = notes;
        m_progress = progress;
        Q_EMIT progressed();
    }

    Switch checks = Switch::on;
    QStringList asked;

private:
    Phase m_phase = Phase::idle;
    QString m_headline;
    QString m_notes;
    double m_progress = 0;
};

using Phase = UpdateSettings::Phase;
const QString newer = u"Version 1.5.0 (813) is available."_s;
const QString resume = u"Updates will resume after your meeting reminder is handled."_s;
const QString news = u"• Alerts come up on displays that were plugged in a moment ago.\n"
                     "• Calendars with thousands of repeating meetings are read in half the time.\n"
                     "• Opening a meeting’s link no longer waits for a browser that is still starting."_s;

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
    void everyStepOfAnUpdateIsShown_data();
    void everyStepOfAnUpdateIsShown();
    void theKeyboardFollowsAnUpdate();
    void longNotesAreReadByKeys();
    void aDownloadIsHeard();
    void whatComesOfACheckIsBroughtIntoSight();

private:
    void open(QSize size, Switch dark = Switch::on);
    /// The page as it is for who wants to see the updates->
    void openUpdates(QSize size, Switch dark = Switch::on);
    void keepPicture();
    void checkEveryWord(QSize page) const;
    void press(Qt::Key key) { QTest::keyClick(&picture->view, key); }
    void type(const QByteArray &letters);
    /// Presses Tab until the keyboard is at the control of this name.
    void tabTo(const QString &name);
    /// The name by which a screen reader calls the control that has the keyboard.
    [[nodiscard]] QString current() const;

    std::unique_ptr<ObedientUpdates> updates;
    std::unique_ptr<ModelFixture> f;
    std::unique_ptr<SettingsForm> form;
    std::unique_ptr<ViewPicture> picture;
};

void SettingsPageTest::init()
{
    updates = std::make_unique<ObedientUpdates>();
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
    updates.reset();
}

void SettingsPageTest::open(QSize size, Switch dark)
{
    picture = std::make_unique<ViewPicture>(dark);
    SettingsView::registerTypes();
    picture->view.setColor(dark == Switch::on ? QColor(0x12, 0x10, 0x0d) : QColor(0xfa, 0xf7, 0xf2));
    QVERIFY(picture->show(QUrl(u"qrc:/Quorvane/Settings/SettingsPage.qml"_s), size,
                          {{u"settings"_s, QVariant::fromValue(form.get())}}));
}

void SettingsPageTest::openUpdates(QSize size, Switch dark)
{
    picture.reset();
    form = std::make_unique<SettingsForm>(*f->model, updates.get());
    open(size, dark);
    QMetaObject::invokeMethod(picture->view.rootObject(), "showUpdates");
}

void SettingsPageTest::keepPicture()
{
    const QString folder = qEnvironmentVariable("QUORVANE_PICTURES");
    if (!folder.isEmpty())
        picture->image().save(
            u"%1/settings-%2-%3.png"_s.arg(folder, QLatin1StringView(QTest::currentDataTag()))
                .arg(picture->view.width()));
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
    checkEveryWord(page);
}

void SettingsPageTest::checkEveryWord(QSize page) const
{
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
    form = std::make_unique<SettingsForm>(*f->model, updates.get());
    open({884, 780});
    tabTo(u"Check for Updates"_s);
    press(Qt::Key_Return);
    QCOMPARE(updates->asked, QStringList(u"check"_s));
    tabTo(u"Check for updates automatically"_s);
    press(Qt::Key_Space);
    QCOMPARE(updates->checks, Switch::off);
    Q_EMIT updates->changed();
    press(Qt::Key_Tab);
    QCOMPARE(current(), u"Check for Updates"_s);
}

void SettingsPageTest::everyStepOfAnUpdateIsShown_data()
{
    QTest::addColumn<Phase>("phase");
    QTest::addColumn<QString>("headline");
    QTest::addColumn<QString>("notes");
    const QString endless(300, u'W');
    QTest::newRow("checking") << Phase::checking << u"Looking for updates…"_s << QString();
    QTest::newRow("up-to-date") << Phase::upToDate << u"Quorvane is up to date."_s << QString();
    QTest::newRow("available") << Phase::available << newer << news;
    QTest::newRow("available-without-notes") << Phase::available << newer << QString();
    QTest::newRow("downloading") << Phase::downloading << u"Downloading version 1.5.0 (813)…"_s << news;
    QTest::newRow("preparing") << Phase::preparing << u"Checking and unpacking version 1.5.0 (813)…"_s
                               << news;
    QTest::newRow("waiting") << Phase::waiting << resume << news;
    QTest::newRow("installed") << Phase::installed << u"Version 1.5.0 (813) is installed."_s << QString();
    QTest::newRow("failed") << Phase::failed
                            << u"The update could not be downloaded. Quorvane tries again later."_s
                            << QString();
    QTest::newRow("long-notes") << Phase::available << newer
                                << (news + u'\n').repeated(15) + u"<b>no</b> "_s + endless;
    QTest::newRow("long-headline") << Phase::downloading << u"Version %1 is available."_s.arg(endless)
                                   << news;
}

void SettingsPageTest::everyStepOfAnUpdateIsShown()
{
    QFETCH(Phase, phase);
    QFETCH(QString, headline);
    QFETCH(QString, notes);
    updates->enter(phase, headline, notes, 0.42);
    for (const auto &[size, dark] :
         {std::pair{QSize(884, 780), Switch::off}, {QSize(648, 620), Switch::on}}) {
        openUpdates(size, dark);
        QTRY_COMPARE(form->phone()->userKey()->hint(), u"u7Qe"_s);
        const QQuickItem *group = picture->item("updates");
        QTRY_VERIFY(ViewPicture::area(group).bottom() <= size.height());
        QVERIFY(ViewPicture::area(group).top() >= 0);
        keepPicture();
        checkEveryWord(size);
    }
}

void SettingsPageTest::theKeyboardFollowsAnUpdate()
{
    updates->enter(Phase::available, newer);
    openUpdates({648, 620});
    QTRY_COMPARE(current(), u"Download and Install"_s);
    press(Qt::Key_Return);
    updates->enter(Phase::downloading, newer);
    QTRY_COMPARE(current(), u"Stop the download"_s);
    press(Qt::Key_Return);
    updates->enter(Phase::available, newer);
    QTRY_COMPARE(current(), u"Download and Install"_s);
    updates->enter(Phase::downloading, newer);
    updates->enter(Phase::preparing, newer);
    QTRY_COMPARE(current(), u"Check for Updates"_s);
    updates->enter(Phase::failed, newer);
    tabTo(u"Try Again"_s);
    press(Qt::Key_Space);
    QCOMPARE(updates->asked, QStringList({u"install"_s, u"stop"_s, u"install"_s}));
}

void SettingsPageTest::whatComesOfACheckIsBroughtIntoSight()
{
    openUpdates({648, 620});
    QTRY_COMPARE(current(), u"Check for Updates"_s);
    press(Qt::Key_Return);
    updates->enter(Phase::available, newer, news);
    const QQuickItem *group = picture->item("updates");
    QTRY_VERIFY(ViewPicture::area(group).bottom() <= 620);
}

void SettingsPageTest::longNotesAreReadByKeys()
{
    updates->enter(Phase::available, newer, news);
    openUpdates({648, 620});
    QTRY_COMPARE(current(), u"Download and Install"_s);
    press(Qt::Key_Backtab);
    QCOMPARE(current(), u"Check for Updates"_s);
    updates->enter(Phase::available, newer, news.repeated(9));
    press(Qt::Key_Tab);
    QCOMPARE(current(), u"What is new"_s);
    const auto *words = picture->item("notes");
    const double before = ViewPicture::area(words).top();
    for (const auto &[key, moves] :
         {std::pair{Qt::Key_PageDown, -1}, {Qt::Key_Down, -1}, {Qt::Key_Up, 1}, {Qt::Key_PageUp, 1}}) {
        const double above = ViewPicture::area(words).top();
        press(key);
        QVERIFY((ViewPicture::area(words).top() - above) * moves > 0);
    }
    QCOMPARE(ViewPicture::area(words).top(), before);
}

void SettingsPageTest::aDownloadIsHeard()
{
    updates->enter(Phase::downloading, newer, {}, 0.429);
    openUpdates({648, 620});
    QAccessibleInterface *bar = QAccessible::queryAccessibleInterface(picture->item("progress"));
    QCOMPARE(bar->role(), QAccessible::ProgressBar);
    QCOMPARE(bar->text(QAccessible::Name), u"Download: 42%"_s);
    updates->enter(Phase::downloading, newer, {}, 1);
    QCOMPARE(bar->text(QAccessible::Name), u"Download: 100%"_s);
}

QTEST_MAIN(SettingsPageTest)

#include "settings_page_test.moc"
