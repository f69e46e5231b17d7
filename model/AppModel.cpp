// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "model/AppModel.h"

#include "async/Launch.h"

using namespace Qt::StringLiterals;

namespace quorvane {

namespace {

// Calendar services announce one change in several parts; a reading follows when they have come together.
constexpr int changeDelayMilliseconds = 200;

} // namespace

AppModel::AppModel(Mode mode, const AppModelServices &services, QObject *parent)
    : QObject(parent)
    , m_mode(mode)
    , m_services(services)
    , m_ledger(services.ledgerFile)
    , m_manual(services.secrets)
    , m_settings(mode == Mode::live ? SettingsKeeper::Storage::file : SettingsKeeper::Storage::memory,
                 services.preferences)
    , m_credentials(services.secrets)
    , m_phone(m_credentials)
{
    connectCollaborators();
    if (m_mode == Mode::preview) {
        fillWithSample();
        followSettings();
        return;
    }
    loadPersisted();
    m_status = u"Connect your calendars to begin."_s;
    m_fantasticalStatus = u"Connecting Fantastical…"_s;
    beginLiveWork();
}

AppModel::~AppModel() = default;

void AppModel::connectCollaborators()
{
    connect(&m_phone, &PhoneWatch::changed, this, &AppModel::phoneHealthChanged);
    connect(&m_manual, &ManualMeetings::changed, this, &AppModel::takeManualMeetings);
    connect(&m_manual, &ManualMeetings::wasSetAside, this, [this] {
        setNotice(u"Added meetings could not be read completely. What was there is set aside in Keychain."_s);
    });
    connect(&m_settings, &SettingsKeeper::wasSetAside, this, [this] {
        setNotice(u"Saved settings could not be read and were set aside. Check Quorvane’s settings."_s);
    });
}

void AppModel::followSettings()
{
    connect(&m_settings, &SettingsKeeper::valuesChanged, this, &AppModel::takeSettings);
    connect(&m_settings, &SettingsKeeper::choicesChanged, this, &AppModel::takeChoices);
}

void AppModel::loadPersisted()
{
    if (auto records = m_ledger.load())
        m_records = std::move(*records);
    else
        setNotice(
            u"Saved acknowledgments could not be read and were set aside. A meeting that is under way may "
            "alert again."_s);
    const QStringList pending = m_services.preferences.pendingAcks();
    m_pendingAcks = QSet<QString>(pending.begin(), pending.end());
    m_settings.start();
    m_server.isAddressStored = !serverURL().isEmpty();
    if (!m_server.isAddressStored)
        m_cloudStatus = u"Local only. Phone delivery stops while this Mac sleeps."_s;
    m_calendarAccess = m_services.calendarReader.authorizationStatus() == AuthorizationStatus::fullAccess;
}

void AppModel::beginLiveWork()
{
    m_activity = m_services.activities.beginLatencyCritical(u"Meeting reminders must fire on time"_s);

    m_changeDelay.setSingleShot(true);
    m_changeDelay.setInterval(changeDelayMilliseconds);
    connect(&m_changeDelay, &QTimer::timeout, this, &AppModel::requestRefresh);
    connect(&m_services.calendarReader, &CalendarReader::changed, this, [this] {
        if (!m_changeDelay.isActive())
            m_changeDelay.start();
    });
    connect(&m_services.calendarReader, &CalendarReader::storeRead, this, &AppModel::applyStores);
    connect(&m_services.wakes, &WakeSource::woke, this, &AppModel::requestRefresh);
    connect(&m_services.ticks, &TickSource::tick, this, &AppModel::tick);
    connect(&m_services.ticks, &TickSource::clockChanged, this, [this] {
        mendTimes();
        requestRefresh();
    });
    followSettings();
    connect(&m_turns.patience(), &QTimer::timeout, this, &AppModel::listSources);
    m_services.useCalendarFolders(m_settings.values().calendarFolders, m_settings.values().ownAddresses);
    m_services.wakes.start();
    m_services.ticks.start();
    requestRefresh();
}

void AppModel::fillWithSample()
{
    m_meetings = {sampleMeeting()};
    m_calendarEvents = m_meetings;
    m_scheduledMeetings = m_meetings;
    m_status = u"Preview only. No calendar changes or phone alerts."_s;
}

void AppModel::showPreview(PreviewContent content)
{
    if (m_mode != Mode::preview)
        return;
    m_manual.assume(std::move(content.manualMeetings));
    m_settings.assume(content.settings, content.selectionOverrides);
    // These two come after the signals of the above, which would alter them.
    m_calendarEvents = std::move(content.calendarEvents);
    m_meetings = std::move(content.meetings);
    m_scheduledMeetings = m_meetings;
    m_records = std::move(content.records);
    m_calendars = std::move(content.calendars);
    m_sources = std::move(content.sources);
    if (content.fantasticalConnected)
        m_fantastical.take(FantasticalSnapshot{.calendars = std::move(content.fantasticalCalendars)}, now());
    m_calendarAccess = content.calendarAccess;
    m_lastRefresh = content.lastRefresh;
    m_status = content.status;
    m_fantasticalStatus = content.fantasticalStatus;
    m_cloudStatus = content.cloudStatus;
    m_server.isConfigured = content.serverConfigured;
    m_server.isSynced = content.scheduleSynced;
    m_isPreviewRefreshing = content.isRefreshing;
    m_credentialHints = content.credentialHints;
    m_phone.assume(content.phoneHealth);
    setPausedUntil(content.pausedUntil);
    setNotice(content.notice, content.noticeKind);
    tellAll();
}

void AppModel::tellAll()
{
    Q_EMIT meetingsChanged();
    Q_EMIT recordsChanged();
    Q_EMIT calendarsChanged();
    Q_EMIT sourcesChanged();
    Q_EMIT statusChanged();
    Q_EMIT settingsChanged();
    Q_EMIT credentialHintsChanged();
    Q_EMIT isRefreshingChanged();
}

Meeting AppModel::sampleMeeting() const
{
    const double start = now() + screenLead;
    return {
        .id = u"preview"_s,
        .title = u"Product planning with the team"_s,
        .start = start,
        .end = start + 1800,
        .calendar = u"Work"_s,
        .joinURL = u"https://meet.google.com/abc-defg-hij"_s,
        .source = Meeting::systemSource,
    };
}

bool AppModel::isScheduled(const Meeting &meeting) const
{
    return MeetingSelection::includes(meeting, selectionOverrides());
}

} // namespace quorvane
