// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "ui/dashboard/Dashboard.h"

#include "async/Launch.h"
#include "model/SourceList.h"

#include <algorithm>

namespace quorvane {

Dashboard::Dashboard(AppModel &model, UpdateSettings *updates, QObject *parent)
    : QObject(parent)
    , m_model(model)
    , m_agenda(model)
    , m_calendars(model)
    , m_settings(model, updates)
    , m_banner(model)
{
    for (const auto change :
         {&AppModel::meetingsChanged, &AppModel::statusChanged, &AppModel::pausedUntilChanged,
          &AppModel::sourcesChanged, &AppModel::calendarsChanged, &AppModel::ticked})
        connect(&m_model, change, this, &Dashboard::updateStatus);
    updateStatus();
}

Dashboard::~Dashboard() = default;

void Dashboard::setSection(Section section)
{
    if (m_section == section)
        return;
    m_section = section;
    Q_EMIT sectionChanged();
}

void Dashboard::openUpdates()
{
    setSection(Section::settings);
    if (!m_isSheetOpen)
        Q_EMIT updatesRequested();
}

void Dashboard::openSheet()
{
    if (m_isSheetOpen)
        return;
    m_sheet = std::make_unique<MeetingForm>(m_model);
    m_isSheetOpen = true;
    Q_EMIT sheetOpenChanged();
}

// The form stays: the sheet still looks at it on its way out.
void Dashboard::closeSheet()
{
    if (!m_isSheetOpen)
        return;
    m_isSheetOpen = false;
    Q_EMIT sheetOpenChanged();
}

void Dashboard::refresh()
{
    launch(m_model.refresh());
}

void Dashboard::updateStatus()
{
    const std::vector<SourceHealth> sources = m_model.sources();
    const SidebarStatus status = SidebarStatus::of({.now = m_model.now(),
                                                    .pausedUntil = m_model.pausedUntil(),
                                                    .sources = sources,
                                                    .calendars = watchedCalendars(),
                                                    .scheduledMeetings = m_model.scheduledMeetings()});
    const int attentionCount = static_cast<int>(SourceList::failing(sources));
    if (status == m_status && attentionCount == m_attentionCount)
        return;
    m_status = status;
    m_attentionCount = attentionCount;
    Q_EMIT statusChanged();
}

qsizetype Dashboard::watchedCalendars() const
{
    const QStringList excluded = m_model.excludedCalendars();
    const auto isWatched = [&](const CalendarOption &calendar) { return !excluded.contains(calendar.id); };
    return std::ranges::count_if(m_model.calendars(), isWatched) +
           std::ranges::count_if(m_model.fantasticalCalendars(), isWatched);
}

} // namespace quorvane
