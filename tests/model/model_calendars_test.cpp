// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "calendars/CalendarError.h"
#include "tests/support/PhoneFixture.h"

#include <QSignalSpy>
#include <QTest>

#include <memory>

using namespace Qt::StringLiterals;
using namespace quorvane;

/// Calendars, folders and sources as the user sees and sets them, and what a preview shows of all that.
class ModelCalendarsTest final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { f = std::make_unique<PhoneFixture>(); }
    void cleanup() { f.reset(); }

    void aCalendarThatIsSwitchedOffIsSilentAtOnce();
    void foldersAreConnectedAndDisconnected();
    void changesFromOutsideTakeEffect();
    void aDamagedSettingsFileIsToldOf();
    void sourcesAreListedAsTheyAreRead();
    void aPreviewChangesOnlyWhatIsInMemory();

private:
    static constexpr double noon = ModelFixture::noon;

    void start()
    {
        f->start();
        QTRY_VERIFY(!f->model->isRefreshing());
    }

    std::unique_ptr<PhoneFixture> f;
};

void ModelCalendarsTest::aCalendarThatIsSwitchedOffIsSilentAtOnce()
{
    f->store->add(u"a"_s, noon + 60);
    start();
    QSignalSpy changed(f->model.get(), &AppModel::calendarsChanged);
    QVERIFY(!f->shown().isEmpty());
    QCoro::Task<> off = f->model->setCalendarEnabled(u"c"_s, Switch::off);
    QCOMPARE(f->shown(), QString());
    QCOMPARE(f->model->excludedCalendars(), QStringList(u"c"_s));
    QCOMPARE(changed.size(), 1);
    QCoro::waitFor(off);
    QCOMPARE(f->preferences.excludedCalendars(), QStringList(u"c"_s));
    QCoro::waitFor(f->model->setCalendarEnabled(u"c"_s, Switch::on));
    QVERIFY(!f->shown().isEmpty());
}

void ModelCalendarsTest::foldersAreConnectedAndDisconnected()
{
    f->addSetting(u"[General]\nownAddresses=me@example.com"_s);
    start();
    QCOMPARE(f->usedFolders, QStringList());
    QCOMPARE(f->usedAddresses, QStringList(u"me@example.com"_s));
    QCoro::waitFor(f->model->connectCalendarFolder()); // the person chooses none
    QCOMPARE(f->usedFolders, QStringList());
    const QString folder = f->dir.filePath(u"Team"_s);
    QVERIFY(QDir().mkpath(folder) && QFile::link(folder, folder + u"-link"_s));
    f->chooser.answer = folder + u"-link"_s;
    const int listings = f->store->listings;
    QCoro::waitFor(f->model->connectCalendarFolder());
    QCOMPARE(f->usedFolders, QStringList(QFileInfo(folder).canonicalFilePath()));
    QVERIFY(f->store->listings > listings);
    QCOMPARE(f->model->sources().size(), 2u);
    QCOMPARE(f->model->sources().back().folder, f->usedFolders.constFirst());
    QCoro::waitFor(f->model->disconnectCalendarFolder(f->usedFolders.constFirst()));
    QCOMPARE(f->usedFolders, QStringList());
    QCOMPARE(f->model->sources().size(), 1u);
    QVERIFY(QFileInfo::exists(folder));
}

void ModelCalendarsTest::changesFromOutsideTakeEffect()
{
    f->store->add(u"a"_s, noon + 60);
    start();
    Preferences other(f->dir.filePath(u"settings.ini"_s));
    QVERIFY(other.setCalendarEnabled(u"c"_s, Switch::off));
    QVERIFY(other.setSoundEnabled(Switch::off));
    QVERIFY(other.addCalendarFolder(u"/a"_s));
    QTRY_COMPARE_WITH_TIMEOUT(f->shown(), QString(), 1000);
    QTRY_VERIFY_WITH_TIMEOUT(!f->model->soundEnabled(), 1000);
    QTRY_COMPARE_WITH_TIMEOUT(f->usedFolders, QStringList(u"/a"_s), 1000);
    f->model->setSoundEnabled(Switch::on);
    QCOMPARE(other.soundEnabled(), true);
    QCOMPARE(other.calendarFolders(), QStringList(u"/a"_s));
}

void ModelCalendarsTest::aDamagedSettingsFileIsToldOf()
{
    QFile file(f->dir.filePath(u"settings.ini"_s));
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write(QByteArray("serverURL=https://a.example\n") + QByteArray(20, '\0'));
    file.close();
    start();
    QCOMPARE(f->model->notice(),
             u"Saved settings could not be read and were set aside. Check Quorvane’s settings."_s);
    QCOMPARE(f->model->serverURL(), QString());
    QCOMPARE(QDir(f->dir.path()).entryList({u"settings.ini.damaged-*"_s}).size(), 1);
}

void ModelCalendarsTest::sourcesAreListedAsTheyAreRead()
{
    f->store->hangs = true;
    f->start();
    QVERIFY(f->model->sources().empty());
    f->store->hangs = false;
    Q_EMIT f->store->released();
    QTRY_COMPARE(f->model->sources().size(), 1u);
    QTRY_VERIFY(!f->model->isRefreshing());
    QSignalSpy changed(f->model.get(), &AppModel::sourcesChanged);
    f->store->hangs = true;
    launch(f->model->refresh());
    QCOMPARE(f->model->sources().front().state, SourceHealth::State::upToDate); // short ones do not flicker
    QTRY_COMPARE(f->model->sources().front().state, SourceHealth::State::refreshing);
    f->store->failure = CalendarError::timedOut;
    Q_EMIT f->store->released();
    QTRY_COMPARE(f->model->sources().front().state, SourceHealth::State::failing);
    QCOMPARE(changed.size(), 2);
    QCOMPARE(f->model->sources().front().lastRead, QDateTime::fromSecsSinceEpoch(qint64(noon)));
}

void ModelCalendarsTest::aPreviewChangesOnlyWhatIsInMemory()
{
    f->useServer();
    f->start(AppModel::Mode::preview);
    const Meeting shown{.id = u"1"_s,
                        .title = u"Planning"_s,
                        .start = noon + 600,
                        .end = noon + 1200,
                        .joinURL = u"https://zoom.us/j/1"_s,
                        .source = Meeting::systemSource};
    PreviewContent content;
    content.meetings = content.calendarEvents = {shown};
    content.notice = u"Saved"_s;
    content.noticeKind = NoticeKind::success;
    content.phoneHealth.state = PhoneHealth::State::ready;
    content.settings.excludedCalendars = {u"x"_s};
    f->model->showPreview(content);
    QCOMPARE(f->model->scheduledMeetings(), std::vector<Meeting>{shown});
    QCOMPARE(f->model->notice(), u"Saved"_s);
    QCOMPARE(f->model->phoneHealth().state, PhoneHealth::State::ready);
    QCoro::waitFor(f->model->setScheduled(shown, Switch::off));
    QVERIFY(f->model->scheduledMeetings().empty());
    QCoro::waitFor(f->model->addMeeting(u"Coffee"_s, noon + 60, 30, QString()));
    QCOMPARE(f->model->calendarEvents().size(), 2u);
    QCoro::waitFor(f->model->deleteManualMeeting(f->model->manualMeetings().front()));
    QCOMPARE(f->model->calendarEvents(), std::vector<Meeting>{shown});
    QCoro::waitFor(f->model->setCalendarEnabled(u"x"_s, Switch::on));
    QCOMPARE(f->model->excludedCalendars(), QStringList());
    QCoro::waitFor(f->model->saveCredentials({.pushoverUser = u"u"_s}));
    QCoro::waitFor(f->model->testPhone());
    f->model->join(shown);
    QVERIFY(f->alert.opener.opened.isEmpty());
    QVERIFY(f->keyring.written.isEmpty() && f->keyring.reads == 0);
    QCOMPARE(f->phone.connections() + f->server.connections(), 0);
    QCOMPARE(f->preferences.excludedCalendars(), QStringList());
    QVERIFY(!QFileInfo::exists(f->ledgerFile()));
}

QTEST_MAIN(ModelCalendarsTest)
#include "model_calendars_test.moc"
