// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "tests/ui/settings/ObedientUpdates.h"
#include "tests/ui/settings/SettingsWindow.h"

#include <QSignalSpy>
#include <QTest>

#include <memory>

using namespace Qt::StringLiterals;
using namespace quorvane;

namespace {

using Phase = UpdateSettings::Phase;

const QString newer = u"Version 1.5.0 (813) is available."_s;
const QString resume = u"Updates will resume after your meeting reminder is handled."_s;
const QString news = u"• Alerts come up on displays that were plugged in a moment ago.\n"
                     "• Calendars with thousands of repeating meetings are read in half the time.\n"
                     "• Opening a meeting’s link no longer waits for a browser that is still starting."_s;

} // namespace

/// The updates on the settings page, with an updater that is told where it stands.
class UpdateGroupTest final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup() { page.reset(); }

    void anUpdaterIsTold();
    void everyStepOfAnUpdateIsShown_data();
    void everyStepOfAnUpdateIsShown();
    void theKeyboardFollowsAnUpdate();
    void whatComesOfACheckIsBroughtIntoSight();
    void longNotesAreReadByKeys();
    void aDownloadIsHeard();
    void onlyWhatIsBeingDoneMoves();

private:
    /// The page as it is for who wants to see the updates.
    void openUpdates(QSize size, Switch dark = Switch::on);

    std::unique_ptr<ObedientUpdates> updates;
    std::unique_ptr<SettingsWindow> page;
};

void UpdateGroupTest::init()
{
    updates = std::make_unique<ObedientUpdates>();
    page = std::make_unique<SettingsWindow>(updates.get());
}

void UpdateGroupTest::openUpdates(QSize size, Switch dark)
{
    page->open(size, dark);
    QMetaObject::invokeMethod(page->picture->view.rootObject(), "showUpdates");
}

void UpdateGroupTest::anUpdaterIsTold()
{
    page->open({884, 780});
    page->tabTo(u"Check for Updates"_s);
    page->press(Qt::Key_Return);
    QCOMPARE(updates->asked, QStringList(u"check"_s));
    page->tabTo(u"Check for updates automatically"_s);
    page->press(Qt::Key_Space);
    QCOMPARE(updates->checks, Switch::off);
}

void UpdateGroupTest::everyStepOfAnUpdateIsShown_data()
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

void UpdateGroupTest::everyStepOfAnUpdateIsShown()
{
    QFETCH(Phase, phase);
    QFETCH(QString, headline);
    QFETCH(QString, notes);
    updates->enter(phase, headline, notes, 0.42);
    for (const auto &[size, dark] :
         {std::pair{QSize(884, 780), Switch::off}, {QSize(648, 620), Switch::on}}) {
        openUpdates(size, dark);
        QTRY_COMPARE(page->form->phone()->userKey()->hint(), u"u7Qe"_s);
        const QQuickItem *group = page->picture->item("updates");
        QTRY_VERIFY(ViewPicture::area(group).bottom() <= size.height());
        QVERIFY(ViewPicture::area(group).top() >= 0);
        page->keepPicture();
        page->checkEveryWord();
    }
}

void UpdateGroupTest::theKeyboardFollowsAnUpdate()
{
    updates->enter(Phase::available, newer);
    openUpdates({648, 620});
    QTRY_COMPARE(page->current(), u"Download and Install"_s);
    page->press(Qt::Key_Return);
    updates->enter(Phase::downloading, newer);
    QTRY_COMPARE(page->current(), u"Stop the download"_s);
    page->press(Qt::Key_Return);
    updates->enter(Phase::available, newer);
    QTRY_COMPARE(page->current(), u"Download and Install"_s);
    updates->enter(Phase::downloading, newer);
    updates->enter(Phase::preparing, newer);
    QTRY_COMPARE(page->current(), u"Check for Updates"_s);
    updates->enter(Phase::failed, newer);
    page->tabTo(u"Try Again"_s);
    page->press(Qt::Key_Space);
    QCOMPARE(updates->asked, QStringList({u"install"_s, u"stop"_s, u"install"_s}));
}

void UpdateGroupTest::whatComesOfACheckIsBroughtIntoSight()
{
    for (const QSize size : {QSize(648, 620), QSize(1064, 640)}) {
        updates->enter(Phase::idle, QString(), QString());
        openUpdates(size);
        QTRY_COMPARE(page->current(), u"Check for Updates"_s);
        page->press(Qt::Key_Return);
        updates->enter(Phase::available, newer, QString());
        const QQuickItem *group = page->picture->item("updates");
        QTRY_VERIFY(ViewPicture::area(group).bottom() <= size.height());
    }

    // Also when the window manager then gives it another size.
    page->picture->view.resize(1064, 480);
    QTRY_VERIFY(ViewPicture::area(page->picture->item("updates")).bottom() <= 480);
}

void UpdateGroupTest::longNotesAreReadByKeys()
{
    updates->enter(Phase::available, newer, news);
    openUpdates({648, 620});
    QTRY_COMPARE(page->current(), u"Download and Install"_s);
    page->press(Qt::Key_Backtab);
    QCOMPARE(page->current(), u"Check for Updates"_s);
    updates->enter(Phase::available, newer, news.repeated(9));
    page->press(Qt::Key_Tab);
    QCOMPARE(page->current(), u"What is new"_s);
    // Within their box: the page may still be on its way to bring it into sight.
    const QQuickItem *content = page->picture->item("notes")->parentItem();
    const double before = content->y();
    for (const auto &[key, moves] :
         {std::pair{Qt::Key_PageDown, -1}, {Qt::Key_Down, -1}, {Qt::Key_Up, 1}, {Qt::Key_PageUp, 1}}) {
        const double above = content->y();
        page->press(key);
        QVERIFY((content->y() - above) * moves > 0);
    }
    QCOMPARE(content->y(), before);
}

void UpdateGroupTest::aDownloadIsHeard()
{
    updates->enter(Phase::downloading, newer, {}, 0.429);
    openUpdates({648, 620});
    QAccessibleInterface *bar = QAccessible::queryAccessibleInterface(page->picture->item("progress"));
    QCOMPARE(bar->role(), QAccessible::ProgressBar);
    QCOMPARE(bar->text(QAccessible::Name), u"Download: 42%"_s);
    updates->enter(Phase::downloading, newer, {}, 1);
    QCOMPARE(bar->text(QAccessible::Name), u"Download: 100%"_s);
}

void UpdateGroupTest::onlyWhatIsBeingDoneMoves()
{
    openUpdates({648, 620});
    QSignalSpy frames(&page->picture->view, &QQuickWindow::frameSwapped);
    const auto isQuiet = [&] {
        frames.clear();
        QTest::qWait(400);
        return frames.isEmpty();
    };
    QVERIFY(QTest::qWaitFor(isQuiet, 20000));
    updates->enter(Phase::checking, newer);
    QVERIFY(!isQuiet());
    page->picture->appearance.setReduceMotion(true);
    QVERIFY(QTest::qWaitFor(isQuiet, 20000));
    page->picture->appearance.setReduceMotion(false);
    QVERIFY(!isQuiet());
    updates->enter(Phase::upToDate, newer);
    QVERIFY(QTest::qWaitFor(isQuiet, 20000));
}

QTEST_MAIN(UpdateGroupTest)

#include "update_group_test.moc"
