// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "ui/tray/MenuContent.h"

#include "async/Launch.h"
#include "model/AppModel.h"
#include "model/SourceList.h"
#include "ui/format/MeetingFormat.h"
#include "ui/tray/MenuText.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace quorvane {

namespace {

MenuEntry line(const QString &text)
{
    return {.kind = MenuEntry::Kind::text, .text = text};
}

MenuEntry command(const QString &text, MenuCommand command)
{
    return {.kind = MenuEntry::Kind::command, .text = text, .command = command};
}

} // namespace

MenuContent::MenuContent(AppModel &model, QObject *parent)
    : QObject(parent)
    , m_model(model)
    , m_shown(current())
{
    for (const auto change :
         {&AppModel::meetingsChanged, &AppModel::statusChanged, &AppModel::pausedUntilChanged,
          &AppModel::sourcesChanged, &AppModel::phoneHealthChanged, &AppModel::ticked})
        connect(&m_model, change, this, &MenuContent::update);
}

void MenuContent::update()
{
    Shown now = current();
    if (now == m_shown)
        return;
    m_shown = std::move(now);
    Q_EMIT changed();
}

MenuContent::Shown MenuContent::current() const
{
    return {
        .entries = currentEntries(),
        .toolTip = u"Quorvane: "_s + MenuText::oneLine(QString(m_model.status()).replace(u"&"_s, u" and "_s)),
        .state = currentState(),
    };
}

MenuEntries MenuContent::currentEntries() const
{
    MenuEntries entries{line(MenuText::oneLine(m_model.status()))};
    const std::vector<Meeting> &scheduled = m_model.scheduledMeetings();
    const auto next = std::ranges::find_if(
        scheduled, [now = m_model.now()](const Meeting &meeting) { return meeting.start >= now; });
    if (next != scheduled.end()) {
        entries.push_back(
            line(tr("Next: ") + MenuText::elided(MenuText::oneLine(next->title), longestTitle)));
        entries.push_back(line(MeetingFormat::clockTime(next->start)));
    }
    entries.push_back({});
    entries.push_back(command(tr("Open Quorvane"), MenuCommand::open));
    entries.push_back(command(tr("Preview screen alert"), MenuCommand::previewAlert));
    entries.push_back(command(tr("Check for updates…"), MenuCommand::checkForUpdates));
    entries.push_back(command(tr("Refresh calendars"), MenuCommand::refresh));
    entries.push_back(m_model.pausedUntil()
                          ? command(tr("Resume screen alerts"), MenuCommand::resume)
                          : command(tr("Pause screen alerts for 5 minutes"), MenuCommand::pause));
    entries.push_back({});
    entries.push_back(command(tr("Quit Quorvane"), MenuCommand::quit));
    return entries;
}

TrayState MenuContent::currentState() const
{
    if (m_model.pausedUntil())
        return TrayState::paused;
    // This machine tells the phone itself only once it has given up on the server.
    const bool isServerGivenUp =
        m_model.serverConfigured() && !m_model.scheduleSynced() && !m_model.localMeetings().empty();
    const bool hasPhoneFailed = m_model.phoneHealth().state == PhoneHealth::State::failed;
    if (SourceList::failing(m_model.sources()) > 0 || hasPhoneFailed || isServerGivenUp)
        return TrayState::attention;
    return TrayState::normal;
}

void MenuContent::perform(MenuCommand command)
{
    switch (command) {
    case MenuCommand::open:
        Q_EMIT openRequested();
        return;
    case MenuCommand::previewAlert:
        m_model.previewAlert();
        return;
    case MenuCommand::checkForUpdates:
        Q_EMIT checkForUpdatesRequested();
        return;
    case MenuCommand::refresh:
        launch(m_model.refresh());
        return;
    case MenuCommand::pause:
        m_model.pauseAlerts();
        return;
    case MenuCommand::resume:
        m_model.resumeAlerts();
        return;
    case MenuCommand::quit:
        Q_EMIT quitRequested();
        return;
    }
}

} // namespace quorvane
