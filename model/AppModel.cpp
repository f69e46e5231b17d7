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
    , m_credentials(services.secrets)
{
    if (m_mode == Mode::preview) {
        fillWithSample();
        return;
    }
    loadPersisted();
    m_status = u"Connect your calendars to begin."_s;
    m_fantasticalStatus = u"Connecting Fantastical…"_s;
    beginLiveWork();
}

AppModel::~AppModel() = default;

void AppModel::loadPersisted()
{
    if (auto records = m_ledger.load())
        m_records = std::move(*records);
    else
        setNotice(
            u"Saved acknowledgments could not be read and were set aside. A meeting that is under way may "
            "alert again."_s);
    m_selectionOverrides = m_services.preferences.meetingChoices();
    const QStringList pending = m_services.preferences.pendingAcks();
    m_pendingAcks = QSet<QString>(pending.begin(), pending.end());
    m_serverAddressStored = !m_services.preferences.serverURL().isEmpty();
    if (!m_serverAddressStored)
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
    return MeetingSelection::includes(meeting, m_selectionOverrides);
}

} // namespace quorvane
