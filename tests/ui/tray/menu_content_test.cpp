// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "core/UnixTime.h"
#include "tests/support/PhoneFixture.h"
#include "ui/format/MeetingFormat.h"
#include "ui/tray/MenuContent.h"

#include <QSignalSpy>
#include <QTest>

using namespace Qt::StringLiterals;
using namespace quorvane;

/// What the tray shows of a real model, and what its commands do to it.
class MenuContentTest final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { f = std::make_unique<PhoneFixture>(); }
    void cleanup() { f.reset(); }

    void theMenuIsInOrder()
    {
        start();
        const MenuContent content(*f->model);
        QCOMPARE(texts(content),
                 QStringList({u"0 meetings scheduled for alerts"_s, u"-"_s, u"Open Quorvane"_s,
                              u"Preview screen alert"_s, u"Check for updates…"_s, u"Refresh calendars"_s,
                              u"Pause screen alerts for 5 minutes"_s, u"-"_s, u"Quit Quorvane"_s}));
    }

    void theNextMeetingIsTheFirstThatHasNotStarted()
    {
        f->store->add(u"started"_s, noon - 60);
        f->store->add(u"next"_s, noon + 3600);
        f->store->add(u"last"_s, noon + 7200);
        start();
        MenuContent content(*f->model);
        QSignalSpy changes(&content, &MenuContent::changed);
        QCOMPARE(texts(content).mid(1, 3),
                 QStringList({u"Next: next"_s, MeetingFormat::clockTime(noon + 3600), u"-"_s}));
        f->tickAt(noon + 3600);
        QTRY_VERIFY(!f->model->isRefreshing());
        QCOMPARE(texts(content).value(1), u"Next: next"_s);
        changes.clear();
        f->tickAt(noon + 3600.5);
        QCOMPARE(texts(content).mid(1, 2),
                 QStringList({u"Next: last"_s, MeetingFormat::clockTime(noon + 7200)}));
        QCOMPARE(changes.count(), 1);
    }

    void aForeignTitleIsOneShortLine_data()
    {
        QTest::addColumn<QString>("title");
        QTest::addColumn<QString>("shown");
        QTest::newRow("as it is") << u"R&D __ review_1"_s << u"R&D __ review_1"_s;
        QTest::newRow("breaks") << u"one\r\ntwo\u2028three\n"_s << u"one two three"_s;
        QTest::newRow("controls") << QString(u"a"_s + QChar(0) + u"b\x1b c"_s) << u"a b c"_s;
        QTest::newRow("just short enough") << QString(60, u'x') << QString(60, u'x');
        QTest::newRow("too long") << QString(61, u'x') << QString(QString(59, u'x') + u'…');
        const QString family = u"👩‍👩‍👧"_s; // one character of eight UTF-16 units
        QTest::newRow("counted as people do") << family.repeated(60) << family.repeated(60);
        QTest::newRow("cut between characters") << family.repeated(70) << QString(family.repeated(59) + u'…');
    }
    void aForeignTitleIsOneShortLine()
    {
        QFETCH(QString, title);
        f->store->add(u"m"_s, noon + 3600);
        f->store->reading.events.back().title = title;
        start();
        QFETCH(QString, shown);
        QCOMPARE(texts(MenuContent(*f->model)).value(1), u"Next: "_s + shown);
    }

    void aPauseClosesTheAlertAndIsOfferedToBeEndedEvenWhenItIsOver()
    {
        start();
        MenuContent content(*f->model);
        content.perform(MenuCommand::previewAlert);
        QVERIFY(!f->shown().isEmpty());
        content.perform(MenuCommand::pause);
        QCOMPARE(f->shown(), QString());
        QCOMPARE(f->model->pausedUntil(), UnixTime::moment(noon + 300));
        QVERIFY(texts(content).contains(u"Resume screen alerts"_s));
        QCOMPARE(content.state(), TrayState::paused);
        f->clock.time = noon + 301; // and no tick yet that ends it
        QVERIFY(texts(MenuContent(*f->model)).contains(u"Resume screen alerts"_s));
        content.perform(MenuCommand::resume);
        QVERIFY(!f->model->pausedUntil());
        QVERIFY(texts(content).contains(u"Pause screen alerts for 5 minutes"_s));
        QCOMPARE(content.state(), TrayState::normal);
    }

    void nothingIsToldWhileNothingChanges()
    {
        f->store->add(u"m"_s, noon + 3600);
        start();
        MenuContent content(*f->model);
        QSignalSpy changes(&content, &MenuContent::changed);
        f->tickAt(noon + 1);
        const int queries = f->store->queries;
        content.perform(MenuCommand::refresh);
        QTRY_COMPARE(f->store->queries, queries + 1);
        QTRY_VERIFY(!f->model->isRefreshing());
        QCOMPARE(changes.count(), 0);
        f->store->add(u"n"_s, noon + 1800);
        content.perform(MenuCommand::refresh);
        QTRY_COMPARE(texts(content).value(1), u"Next: n"_s);
        QCOMPARE(content.toolTip(), u"Quorvane: 2 meetings scheduled for alerts"_s);
    }

    void whatOthersDoIsAskedOfThem()
    {
        start();
        MenuContent content(*f->model);
        QStringList asked;
        connect(&content, &MenuContent::openRequested, this, [&] { asked << u"open"_s; });
        connect(&content, &MenuContent::checkForUpdatesRequested, this, [&] { asked << u"updates"_s; });
        connect(&content, &MenuContent::quitRequested, this, [&] { asked << u"quit"_s; });
        for (const MenuEntry &entry : content.entries()) {
            const bool isLate = entry.command == MenuCommand::pause || entry.command == MenuCommand::refresh;
            if (entry.kind == MenuEntry::Kind::command && !isLate)
                content.perform(entry.command);
        }
        QCOMPARE(asked, QStringList({u"open"_s, u"updates"_s, u"quit"_s}));
    }

    void theToolTipIsNoMarkup()
    {
        f->store->failure = std::make_error_code(std::errc::io_error);
        start();
        QVERIFY(MenuContent(*f->model).toolTip().contains(u"Check Privacy and Security > "_s));
    }

    void theIconTellsOfAPhoneThatCouldNotBeTold()
    {
        f->phone.tell({{"status"_L1, 429}});
        f->store->add(u"m"_s, noon + 100);
        start();
        const MenuContent content(*f->model);
        f->tickAt(noon + 1);
        QTRY_COMPARE(content.state(), TrayState::attention);
    }

    void theIconTellsWhatNeedsTheUser()
    {
        f->useServer();
        f->say(f->health());
        f->store->add(u"m"_s, noon + 3600);
        start();
        MenuContent content(*f->model);
        QCOMPARE(content.state(), TrayState::normal);

        f->store->failure = std::make_error_code(std::errc::io_error);
        f->refresh();
        QCOMPARE(content.state(), TrayState::attention);
        content.perform(MenuCommand::pause);
        QCOMPARE(content.state(), TrayState::paused);
        content.perform(MenuCommand::resume);
        f->store->failure = {};
        f->refresh();
        QCOMPARE(content.state(), TrayState::normal);

        f->server.tell({{"path"_L1, u"/state"_s}, {"status"_L1, 500}});
        for (const TrayState expected : {TrayState::normal, TrayState::normal, TrayState::attention}) {
            f->refresh();
            QCOMPARE(content.state(), expected);
        }
        f->say(f->health());
        f->refresh();
        QCOMPARE(content.state(), TrayState::normal);
    }

private:
    static constexpr double noon = ModelFixture::noon;

    void start()
    {
        f->start();
        QTRY_VERIFY(!f->model->isRefreshing());
    }

    static QStringList texts(const MenuContent &content)
    {
        QStringList found;
        for (const MenuEntry &entry : content.entries())
            found << (entry.kind == MenuEntry::Kind::separator ? u"-"_s : entry.text);
        return found;
    }

    std::unique_ptr<PhoneFixture> f;
};

QTEST_MAIN(MenuContentTest)
#include "menu_content_test.moc"
