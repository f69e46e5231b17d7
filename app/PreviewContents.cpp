// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "app/PreviewContents.h"

#include <QCoreApplication>

#include <cmath>

using namespace Qt::StringLiterals;

namespace quorvane::PreviewContents {

namespace {

const QString designTeam = u"Design team"_s;
const QString platform = u"Platform"_s;
const QString hiring = u"Hiring"_s;
const QString ada = u"Ada Moreau"_s;

const QString google = u"Google – ada@northwind.dev"_s;
const QString northwind = u"Microsoft 365 – Northwind"_s;
const QString home = u"CalDAV – home.example"_s;

enum class Link { none, video };

struct Slot
{
    int day;
    int hour;
    int minute;
    int length;
};

QDateTime at(double now, int day, int hour, int minute)
{
    const QDate today = QDateTime::fromSecsSinceEpoch(std::llround(now)).date();
    return {today.addDays(day), QTime(hour, minute)};
}

Meeting meeting(double now, const QString &title, Slot slot, const QString &calendar, Link link)
{
    const auto start = static_cast<double>(at(now, slot.day, slot.hour, slot.minute).toSecsSinceEpoch());
    Meeting made{.id = Meeting::identity(title, start),
                 .title = title,
                 .start = start,
                 .end = start + 60.0 * slot.length,
                 .calendar = calendar,
                 .source = Meeting::systemSource};
    if (link == Link::video)
        made.joinURL = u"https://meet.google.com/abc-defg-hij"_s;
    return made;
}

Meeting handAdded(double now)
{
    Meeting made =
        meeting(now, u"Dentist – leave the house now"_s, {0, 14, 15, 45}, u"Added by you"_s, Link::none);
    made.source = Meeting::manualSource;
    return made;
}

SourceHealth source(const QString &account, const QDateTime &lastRead)
{
    return {.account = account, .state = SourceHealth::State::upToDate, .lastRead = lastRead};
}

std::vector<CalendarOption> calendars()
{
    return {
        {u"ada"_s, ada, google, u"#e27d8d"_s},
        {u"design"_s, designTeam, google, u"#5fb8a6"_s},
        {u"hiring"_s, hiring, google, u"#b58ce0"_s},
        {u"holidays"_s, u"Holidays in France"_s, google, u"#8fbfb0"_s},
        {u"platform"_s, platform, northwind, u"#6fa8dc"_s},
        {u"oncall"_s, u"On call"_s, northwind, u"#e0b94f"_s},
        {u"family"_s, u"Family"_s, home, u"#8fbf7f"_s},
    };
}

PreviewContent connected(double now)
{
    PreviewContent content;
    content.calendars = calendars();
    content.sources = {source(google, at(now, 0, 9, 47)), source(northwind, at(now, 0, 9, 46)),
                       source(home, at(now, 0, 9, 46))};
    content.lastRefresh = at(now, 0, 9, 47);
    content.status = QCoreApplication::translate("PreviewContents", "0 meetings scheduled for alerts");
    content.settings.excludedCalendars = QStringList{u"holidays"_s};
    content.settings.serverURL = u"https://alerts.northwind.dev"_s;
    content.settings.uploadMacSnapshot = true;
    content.serverConfigured = true;
    content.scheduleSynced = true;
    content.cloudStatus =
        u"Connected. Phone alerts continue from the synced Fantastical schedule while this Mac sleeps."_s;
    content.phoneHealth = {PhoneHealth::State::ready, at(now, 0, 9, 41)};
    content.credentialHints = {u"u7Qe"_s, u"8gM2"_s, u"9f2c"_s};
    return content;
}

} // namespace

PreviewContent busyDay(double now)
{
    PreviewContent content = connected(now);
    const Meeting dentist = handAdded(now);
    const Meeting rehearsal =
        meeting(now, u"Atlas migration: cut-over rehearsal with Support and Field Engineering"_s,
                {1, 13, 0, 90}, platform, Link::video);
    content.manualMeetings = {dentist};
    content.calendarEvents = {
        meeting(now, u"Stand-up"_s, {0, 9, 30, 30}, platform, Link::video),
        meeting(now, u"Weekly design review"_s, {0, 10, 0, 30}, designTeam, Link::video),
        meeting(now, u"Interview: Staff engineer, panel two"_s, {0, 11, 30, 45}, hiring, Link::video),
        dentist,
        meeting(now, u"1:1 with Priya"_s, {1, 9, 0, 30}, ada, Link::video),
        rehearsal,
        meeting(now, u"Roadmap office hours"_s, {2, 16, 0, 30}, designTeam, Link::video),
    };
    content.selectionOverrides = {{dentist.id, true}, {rehearsal.id, false}};
    for (const Meeting &event : content.calendarEvents) {
        if (event.id != rehearsal.id)
            content.meetings.push_back(event);
    }
    content.status = u"%1 meetings scheduled for alerts"_s.arg(content.meetings.size());
    return content;
}

PreviewContent paused(double now)
{
    PreviewContent content = busyDay(now);
    content.pausedUntil = at(now, 0, 9, 53);
    return content;
}

PreviewContent trouble(double now)
{
    PreviewContent content = busyDay(now);
    content.sources[1].state = SourceHealth::State::failing;
    content.sources[1].lastRead = at(now, 0, 6, 48);
    content.phoneHealth.state = PhoneHealth::State::failed;
    return content;
}

PreviewContent success(double now)
{
    PreviewContent content = busyDay(now);
    content.notice = u"“1:1 with Priya” was added to your alert schedule."_s;
    content.noticeKind = NoticeKind::success;
    return content;
}

PreviewContent firstStart()
{
    PreviewContent content;
    content.calendarAccess = false;
    content.status = u"Connect your calendars to begin."_s;
    content.fantasticalStatus = u"Connecting Fantastical…"_s;
    content.cloudStatus = u"Local only. Phone delivery stops while this Mac sleeps."_s;
    content.phoneHealth.state = PhoneHealth::State::notSetUp;
    return content;
}

PreviewContent quietDays(double now)
{
    return connected(now);
}

} // namespace quorvane::PreviewContents
