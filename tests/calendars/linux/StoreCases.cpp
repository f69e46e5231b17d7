// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "tests/calendars/linux/StoreCases.h"

using namespace Qt::StringLiterals;

namespace quorvane {

const QString StoreCase::ownAddress = u"me@example.com"_s;

namespace {

QByteArray event(const QByteArray &properties, const QByteArray &uid = "case")
{
    return "BEGIN:VEVENT\nUID:" + uid + "\nDTSTAMP:20261101T000000Z\n" + properties + "END:VEVENT\n";
}

QByteArray attendee(const QByteArray &answer, const QByteArray &address)
{
    return event(
        "SUMMARY:m\nDTSTART:20261123T090000Z\nDTEND:20261123T100000Z\nORGANIZER:mailto:boss@example.com\n"
        "ATTENDEE;PARTSTAT=ACCEPTED:mailto:boss@example.com\n"
        "ATTENDEE;CN=\"Me; myself\";PARTSTAT=" +
        answer + ":" + address + "\n");
}

const QByteArray nepal = "BEGIN:VTIMEZONE\nTZID:Nepal '+5:45'\nBEGIN:STANDARD\nDTSTART:19860101T000000\n"
                         "TZOFFSETFROM:+0530\nTZOFFSETTO:+0545\nEND:STANDARD\nEND:VTIMEZONE\n";

// Named as Windows names them, with rules that nobody else knows: the definition counts, not the name.
const QByteArray ownWindowsZone =
    "BEGIN:VTIMEZONE\nTZID:W. Europe Standard Time\nBEGIN:STANDARD\nDTSTART:16010101T030000\n"
    "TZOFFSETFROM:+0300\nTZOFFSETTO:+0300\nEND:STANDARD\nEND:VTIMEZONE\n";

const QByteArray weekly = event("SUMMARY:w\nDTSTART;TZID=Europe/Berlin:20261102T100000\n"
                                "DTEND;TZID=Europe/Berlin:20261102T103000\nRRULE:FREQ=WEEKLY\n");

std::vector<StoreCase> zones()
{
    return {
        {"utc",
         event("SUMMARY:m\nDTSTART:20261123T090000Z\nDTEND:20261123T100000Z\n"),
         {u"11-23 09:00/11-23 10:00 m"_s}},
        {"olson",
         event("SUMMARY:m\nDTSTART;TZID=America/New_York:20261123T090000\nDTEND;TZID=America/"
               "New_York:20261123T100000\n"),
         {u"11-23 14:00/11-23 15:00 m"_s}},
        {"olson-behind-a-prefix",
         event("SUMMARY:m\nDTSTART;TZID=/citadel.org/20210210_1/America/New_York:20261123T090000\n"
               "DTEND;TZID=/citadel.org/20210210_1/America/New_York:20261123T100000\n"),
         {u"11-23 14:00/11-23 15:00 m"_s}},
        {"own-zone",
         nepal + event("SUMMARY:m\nDTSTART;TZID=Nepal '+5:45':20261123T090000\nDURATION:PT1H\n"),
         {u"11-23 03:15/11-23 04:15 m"_s}},
        {"windows-name",
         event("SUMMARY:m\nDTSTART;TZID=Pacific Standard Time:20261123T090000\nDURATION:PT1H\n"),
         {u"11-23 17:00/11-23 18:00 m"_s}},
        {"windows-name-with-own-rules",
         ownWindowsZone +
             event("SUMMARY:m\nDTSTART;TZID=W. Europe Standard Time:20261123T090000\nDURATION:PT1H\n"),
         {u"11-23 06:00/11-23 07:00 m"_s}},
        {"unknown-zone",
         event("SUMMARY:m\nDTSTART;TZID=Nowhere:20261123T090000\nDURATION:PT1H\n"),
         {u"11-23 08:00/11-23 09:00 m"_s}},
        {"floating",
         event("SUMMARY:m\nDTSTART:20261123T100000\nDTEND:20261123T110000\n"),
         {u"11-23 09:00/11-23 10:00 m"_s}},
        {"all-day",
         event("SUMMARY:d\nDTSTART;VALUE=DATE:20261123\nDTEND;VALUE=DATE:20261125\n"),
         {u"11-22 23:00/11-24 23:00 d all-day"_s}},
        {"all-day-without-end",
         event("SUMMARY:d\nDTSTART;VALUE=DATE:20261123\n"),
         {u"11-22 23:00/11-23 23:00 d all-day"_s}},
        {"winter-time",
         event(
             "SUMMARY:w\nDTSTART;TZID=America/New_York:20261005T090000\nDURATION:PT30M\nRRULE:FREQ=WEEKLY\n"),
         {u"11-23 14:00/11-23 14:30 w"_s, u"11-30 14:00/11-30 14:30 w"_s}},
    };
}

std::vector<StoreCase> series()
{
    const QByteArray daily = "SUMMARY:s\nDTSTART:20261122T090000Z\nDTEND:20261122T093000Z\n";
    return {
        {"count",
         event(daily + "RRULE:FREQ=DAILY;COUNT=2\n"),
         {u"11-22 09:00/11-22 09:30 s"_s, u"11-23 09:00/11-23 09:30 s"_s}},
        {"until",
         event(daily + "RRULE:FREQ=WEEKLY;UNTIL=20261129T090000Z\n"),
         {u"11-22 09:00/11-22 09:30 s"_s, u"11-29 09:00/11-29 09:30 s"_s}},
        {"rdate",
         event(daily + "RDATE;TZID=America/New_York:20261124T090000\nRDATE:20270101T000000Z\n"),
         {u"11-22 09:00/11-22 09:30 s"_s, u"11-24 14:00/11-24 14:30 s"_s}},
        {"exdate",
         event(daily + "RRULE:FREQ=DAILY;COUNT=4\nEXDATE:20261123T090000Z\nEXDATE;TZID=Europe/"
                       "Berlin:20261124T100000\n"),
         {u"11-22 09:00/11-22 09:30 s"_s, u"11-25 09:00/11-25 09:30 s"_s}},
        {"began-before",
         event("SUMMARY:long\nDTSTART:20261115T090000Z\nDTEND:20261121T000100Z\n"),
         {u"11-15 09:00/11-21 00:01 long"_s}},
        {"over-before", event("SUMMARY:m\nDTSTART:20261120T230000Z\nDTEND:20261121T000000Z\n"), {}},
        {"starts-at-the-end", event("SUMMARY:m\nDTSTART:20261205T000000Z\nDURATION:PT1H\n"), {}},
        {"nonsense",
         event("SUMMARY:m\nDTSTART:20261123T090000Z\nRRULE:FREQ=NEVER;BYDAY=XX\n") +
             event("SUMMARY:n\n", "n"),
         {u"11-23 09:00/11-23 09:00 m"_s}},
    };
}

std::vector<StoreCase> overrides()
{
    const QByteArray at23 = "RECURRENCE-ID;TZID=Europe/Berlin:20261123T100000\n";
    const QString first = u"11-23 09:00/11-23 09:30 w"_s;
    const QString second = u"11-30 09:00/11-30 09:30 w"_s;
    return {
        {"moved",
         weekly + event(at23 + "SUMMARY:moved\nDTSTART:20261124T120000Z\nDTEND:20261124T130000Z\n"),
         {u"11-24 12:00/11-24 13:00 moved"_s, second}},
        {"moved-named-in-utc",
         weekly +
             event(
                 "RECURRENCE-ID:20261123T090000Z\nSUMMARY:moved\nDTSTART:20261124T120000Z\nDURATION:PT1H\n"),
         {u"11-24 12:00/11-24 13:00 moved"_s, second}},
        {"moved-named-by-day",
         weekly + event("RECURRENCE-ID;VALUE=DATE:20261123\nSUMMARY:moved\nDTSTART:"
                        "20261124T120000Z\nDURATION:PT1H\n"),
         {u"11-24 12:00/11-24 13:00 moved"_s, second}},
        {"late-meeting-named-by-its-local-day",
         event("SUMMARY:w\nDTSTART;TZID=America/"
               "New_York:20261101T230000\nDURATION:PT30M\nRRULE:FREQ=WEEKLY\n") +
             event("RECURRENCE-ID;VALUE=DATE:20261122\nSUMMARY:moved\nDTSTART:20261126T120000Z\nDURATION:"
                   "PT1H\n"),
         {u"11-26 12:00/11-26 13:00 moved"_s, u"11-30 04:00/11-30 04:30 w"_s}},
        {"all-day-named-by-time",
         event("SUMMARY:d\nDTSTART;VALUE=DATE:20261116\nRRULE:FREQ=WEEKLY;COUNT=2\n") +
             event("RECURRENCE-ID:20261123T000000Z\nSUMMARY:moved\nDTSTART;VALUE=DATE:20261125\n"),
         {u"11-24 23:00/11-25 23:00 moved all-day"_s}},
        {"moved-out",
         weekly + event(at23 + "SUMMARY:w\nDTSTART:20270101T120000Z\nDURATION:PT1H\n"),
         {second}},
        {"moved-in",
         weekly +
             event("RECURRENCE-ID;TZID=Europe/Berlin:20270104T100000\nSUMMARY:in\nDTSTART:20261126T120000Z\n"
                   "DURATION:PT1H\n"),
         {first, u"11-26 12:00/11-26 13:00 in"_s, second}},
        {"cancelled-occurrence",
         weekly +
             event(
                 at23 +
                 "STATUS:CANCELLED\nSUMMARY:w\nDTSTART;TZID=Europe/Berlin:20261123T100000\nDURATION:PT30M\n"),
         {first + u" cancelled"_s, second}},
        {"this-and-future",
         weekly +
             event("RECURRENCE-ID;RANGE=THISANDFUTURE;TZID=Europe/Berlin:20261116T100000\nSUMMARY:later\n"
                   "DTSTART;TZID=Europe/Berlin:20261117T110000\nDTEND;TZID=Europe/Berlin:20261117T120000\n"),
         {u"11-24 10:00/11-24 11:00 later"_s, u"12-01 10:00/12-01 11:00 later"_s}},
        {"override-alone",
         event(at23 + "SUMMARY:guest\nDTSTART:20261123T100000Z\nDURATION:PT1H\n"),
         {u"11-23 10:00/11-23 11:00 guest"_s}},
    };
}

std::vector<StoreCase> people()
{
    const QString meeting = u"11-23 09:00/11-23 10:00 m"_s;
    return {
        {"declined", attendee("DECLINED", "mailto:me@example.com"), {meeting + u" declined"_s}},
        {"declined-in-capitals", attendee("DECLINED", "MAILTO:Me@Example.COM"), {meeting + u" declined"_s}},
        {"declined-under-a-urn",
         attendee("DECLINED;EMAIL=me@example.com", "urn:uuid:1"),
         {meeting + u" declined"_s}},
        {"declined-by-another", attendee("DECLINED", "mailto:notme@example.com"), {meeting}},
        {"accepted", attendee("ACCEPTED", "mailto:me@example.com"), {meeting}},
        {"tentative",
         event("STATUS:TENTATIVE\nSUMMARY:m\nDTSTART:20261123T090000Z\nDURATION:PT1H\n"),
         {meeting + u" tentative"_s}},
        {"no-title", event("DTSTART:20261123T090000Z\nDURATION:PT1H\n"), {u"11-23 09:00/11-23 10:00 -"_s}},
        {"escaped-title",
         event("SUMMARY:a\\, b\\; c \\\\ \xC3\xBC\nDTSTART:20261123T090000Z\nDURATION:PT1H\n"),
         {u"11-23 09:00/11-23 10:00 a, b; c \\ \u00FC"_s}},
    };
}

} // namespace

QByteArray StoreCase::calendar() const
{
    QByteArray text = "BEGIN:VCALENDAR\nVERSION:2.0\nPRODID:-//test//EN\n" + components + "END:VCALENDAR\n";
    return text.replace("\n", "\r\n");
}

std::vector<StoreCase> StoreCase::all()
{
    std::vector<StoreCase> result;
    for (std::vector<StoreCase> group : {zones(), series(), overrides(), people()})
        std::move(group.begin(), group.end(), std::back_inserter(result));
    return result;
}

} // namespace quorvane
