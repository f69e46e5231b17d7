// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "core/NewMeeting.h"

#include <QTest>

using namespace Qt::StringLiterals;
using namespace quorvane;

class NewMeetingTest final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void onlyAMeetingThatCanAlertIsAccepted_data();
    void onlyAMeetingThatCanAlertIsAccepted();
    void itBecomesAMeetingOfItsOwn();

private:
    static constexpr double now = 1'800'000'000;
};

void NewMeetingTest::onlyAMeetingThatCanAlertIsAccepted_data()
{
    QTest::addColumn<QString>("title");
    QTest::addColumn<double>("start");
    QTest::addColumn<int>("duration");
    QTest::addColumn<QString>("link");
    QTest::addColumn<bool>("accepted");
    const auto row = [](const char *name, bool accepted, double start = now + 60, int duration = 30,
                        const QString &link = {}, const QString &title = u"Coffee"_s) {
        QTest::newRow(name) << title << start << duration << link << accepted;
    };
    const QString link = u"https://zoom.us/j/"_s;
    row("without a link", true);
    row("now", false, now);
    row("a second from now", true, now + 1);
    row("in 14 days", true, now + NewMeeting::horizon);
    row("a second later than that", false, now + NewMeeting::horizon + 1);
    row("at no time", false, std::nan(""));
    row("for a minute", true, now + 60, 1);
    row("for no time", false, now + 60, 0);
    row("a safe link", true, now + 60, 30, link + u"1"_s);
    row("an unencrypted link", false, now + 60, 30, u"http://zoom.us/j/1"_s);
    row("a blank link", false, now + 60, 30, u" "_s);
    row("a link of 2000 characters", true, now + 60, 30, link + QString(2000 - link.size(), u'1'));
    row("a link of 2001 characters", false, now + 60, 30, link + QString(2001 - link.size(), u'1'));
    row("a title of 1000 characters", true, now + 60, 30, {}, u"👩‍👩‍👧"_s.repeated(1000));
    row("a title of 1001 characters", false, now + 60, 30, {}, QString(1000, u'a') + u' ');
}

void NewMeetingTest::onlyAMeetingThatCanAlertIsAccepted()
{
    QFETCH(QString, title);
    QFETCH(double, start);
    QFETCH(int, duration);
    QFETCH(QString, link);
    const NewMeeting wanted{.title = title, .start = start, .duration = duration, .link = link};
    QTEST(wanted.isAcceptable(now), "accepted");
}

void NewMeetingTest::itBecomesAMeetingOfItsOwn()
{
    const NewMeeting wanted{
        .title = u"  Coffee \n"_s, .start = now + 60, .duration = 45, .link = u"https://zoom.us/j/1"_s};
    const Meeting meeting = wanted.meeting(u"uid"_s);
    const Meeting expected{.id = Meeting::identity(u"uid"_s, now + 60),
                           .title = u"Coffee"_s,
                           .start = now + 60,
                           .end = now + 60 + 2700,
                           .calendar = u"Added by you"_s,
                           .joinURL = u"https://zoom.us/j/1"_s,
                           .source = u"manual"_s};
    QVERIFY(meeting == expected);
    QVERIFY(wanted.meeting(u"another"_s).id != meeting.id);
    QVERIFY(!NewMeeting({.title = u"a"_s, .start = now, .duration = 1}).meeting(u"u"_s).joinURL);
}

QTEST_GUILESS_MAIN(NewMeetingTest)

#include "new_meeting_test.moc"
