// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "ui/calendars/CalendarChoices.h"

#include "async/Launch.h"
#include "calendars/FantasticalAccess.h"
#include "model/AppModel.h"
#include "ui/calendars/CalendarAccounts.h"
#include "ui/format/MeetingFormat.h"

#include <algorithm>

namespace quorvane {

CalendarChoices::CalendarChoices(AppModel &model, QObject *parent)
    : QObject(parent)
    , m_model(model)
    , m_accounts(nullptr)
{
    for (const auto signal :
         {&AppModel::calendarsChanged, &AppModel::sourcesChanged, &AppModel::statusChanged})
        connect(&model, signal, this, &CalendarChoices::update);
    connect(&model, &AppModel::ticked, this, [this] { m_accounts.followTime(m_model.now()); });
    update();
}

QString CalendarChoices::fantasticalExplanation()
{
    return FantasticalAccess::explanation();
}

void CalendarChoices::refresh()
{
    launch(m_model.refresh());
}

void CalendarChoices::connectSystem()
{
    launch(m_model.connectCalendar());
}

void CalendarChoices::connectFolder()
{
    launch(m_model.connectCalendarFolder());
}

void CalendarChoices::connectFantastical()
{
    launch(m_model.connectFantastical());
}

void CalendarChoices::disconnectFolder(const QString &folder)
{
    launch(m_model.disconnectCalendarFolder(folder));
}

void CalendarChoices::switchCalendar(const QString &id)
{
    const bool isRead = !m_model.excludedCalendars().contains(id);
    launch(m_model.setCalendarEnabled(id, isRead ? Switch::off : Switch::on));
}

void CalendarChoices::update()
{
    const std::vector<CalendarAccount> accounts = CalendarAccounts::of(m_model);
    m_accounts.show(accounts, m_model.fantasticalStatus(), m_model.now());
    const Lines lines = linesNow(accounts);
    if (lines == m_lines)
        return;
    m_lines = lines;
    Q_EMIT changed();
}

CalendarChoices::Lines CalendarChoices::linesNow(const std::vector<CalendarAccount> &accounts) const
{
    const bool isFantasticalListed = std::ranges::any_of(
        accounts, [](const CalendarAccount &account) { return account.health.isFantastical; });
    const auto folders = std::ranges::count_if(
        accounts, [](const CalendarAccount &account) { return !account.health.folder.isEmpty(); });
    const QString foldersText =
        folders == 0 ? QString() : tr("%1 connected").arg(MeetingFormat::plural(folders, tr("folder")));
    return {.status = m_model.status(),
            .fantasticalStatus = isFantasticalListed ? QString() : m_model.fantasticalStatus(),
            .isSystemConnected = m_model.calendarAccess(),
            .isFantasticalConnected = m_model.fantasticalConnected(),
            .foldersText = foldersText};
}

} // namespace quorvane
