// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "model/PreviewContent.h"
#include "tests/support/ModelFixture.h"

#include <QDateTime>

namespace quorvane {

/// A morning with a meeting under way, one soon, and some on the days after.
class AgendaScene
{
public:
    /// 9:48 on Tuesday, 14 July 2026.
    static double morning() { return at(0, 9, 48); }
    static double at(int day, int hour, int minute)
    {
        return static_cast<double>(
            QDateTime(QDate(2026, 7, 14).addDays(day), QTime(hour, minute)).toSecsSinceEpoch());
    }

    AgendaScene()
    {
        int turn = 0;
        for (const char *name : {"Platform", "Design team", "Hiring", "House", "Ada Moreau"}) {
            content.calendars.push_back({.id = QString::number(turn++),
                                         .name = QString::fromLatin1(name),
                                         .account = QStringLiteral("Northwind")});
        }
        content.phoneHealth = {.state = PhoneHealth::State::ready,
                               .testedAt = QDateTime(QDate(2026, 7, 14), QTime(9, 41))};
        content.cloudStatus = QStringLiteral("Local only. Phone delivery stops while this Mac sleeps.");
        content.status = QStringLiteral("6 meetings scheduled for alerts");
        content.lastRefresh = QDateTime::fromSecsSinceEpoch(static_cast<qint64>(morning()) - 60);
        addSource("Google – ada@northwind.dev", 60);
        addSource("Microsoft 365 – Northwind", 120);
        addSource("CalDAV – home.example", 130);
    }

    void addSource(const char *account, int age)
    {
        content.sources.push_back(
            {.account = QString::fromUtf8(account),
             .state = SourceHealth::State::upToDate,
             .lastRead = QDateTime::fromSecsSinceEpoch(static_cast<qint64>(morning()) - age)});
    }

    /// In the order of their start. One without a link does not alert.
    Meeting &add(const QString &title, double start, int minutes, const char *calendar,
                 std::optional<QString> link = QStringLiteral("https://zoom.us/j/1"))
    {
        Meeting meeting{.id =
                            QStringLiteral("id of ") + title + QString::number(content.calendarEvents.size()),
                        .title = title,
                        .start = start,
                        .end = start + 60 * minutes,
                        .calendar = QString::fromUtf8(calendar),
                        .source = link ? Meeting::systemSource : Meeting::manualSource};
        meeting.joinURL = std::move(link);
        content.calendarEvents.push_back(meeting);
        return content.calendarEvents.back();
    }

    void addMorning()
    {
        add(QStringLiteral("Stand-up"), at(0, 9, 30), 30, "Platform");
        add(QStringLiteral("Weekly design review"), at(0, 10, 0), 30, "Design team");
        add(QStringLiteral("Interview: Staff engineer, panel two"), at(0, 11, 30), 45, "Hiring");
        add(QStringLiteral("Dentist – leave the house now"), at(0, 14, 15), 45, "Added by you", std::nullopt);
        add(QStringLiteral("1:1 with Priya"), at(1, 9, 0), 30, "Ada Moreau");
        const QString off =
            add(QStringLiteral("Atlas migration: cut-over rehearsal with Support and Field Engineering"),
                at(1, 13, 0), 90, "Platform")
                .id;
        content.selectionOverrides.insert(off, false);
        add(QStringLiteral("Roadmap office hours"), at(2, 16, 0), 30, "Design team");
    }

    /// The model in preview mode, showing this.
    void show(ModelFixture &fixture)
    {
        content.meetings.clear();
        content.manualMeetings.clear();
        for (const Meeting &meeting : content.calendarEvents) {
            if (meeting.source == Meeting::manualSource)
                content.manualMeetings.push_back(meeting);
            if (MeetingSelection::includes(meeting, content.selectionOverrides))
                content.meetings.push_back(meeting);
        }
        if (!fixture.model) {
            fixture.clock.time = morning();
            fixture.start(AppModel::Mode::preview);
        }
        fixture.model->showPreview(content);
    }

    /// A model in preview mode has no ticks of its own.
    static void passTo(ModelFixture &fixture, double time)
    {
        fixture.clock.time = time;
        Q_EMIT fixture.model->ticked();
    }

    PreviewContent content;
};

} // namespace quorvane
