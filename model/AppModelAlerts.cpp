// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "model/AppModel.h"

#include "async/Launch.h"
#include "core/AlertPolicy.h"
#include "core/UnixTime.h"

#include <QLoggingCategory>
#include <QPointer>

#include <algorithm>
#include <cmath>

using namespace Qt::StringLiterals;

namespace quorvane {

namespace {

Q_LOGGING_CATEGORY(alertLog, "quorvane.alert", QtWarningMsg)

// Panels are built this long before they are needed, in seconds.
constexpr double prepareAhead = 4;

const QString previewID = u"preview"_s;

} // namespace

void AppModel::tick()
{
    if (m_mode == Mode::preview)
        return;
    // A refresh ends with the step below, so neither waits for the other: a calendar that hangs delays no
    // alert.
    if (std::abs(now() - m_refreshMark) > refreshInterval && !m_turns.isRunning())
        launch(refresh());
    expirePause();
    phoneStep();
    alertStep();
    receiptStep();
    Q_EMIT ticked();
}

void AppModel::alertStep()
{
    expirePause();
    if (m_pausedUntil || showsRealAlert())
        return;
    if (const Meeting *due = firstDue(now()))
        fire(Meeting(*due));
    else
        prepareNextAlert();
}

const Meeting *AppModel::firstDue(double at) const
{
    const auto due = std::ranges::find_if(m_scheduledMeetings, [&](const Meeting &meeting) {
        return AlertPolicy::shouldShow(meeting, at, screenLead, m_records.value(meeting.id));
    });
    return due == m_scheduledMeetings.end() ? nullptr : &*due;
}

// A sample on screen must not keep a real meeting from its user, so it counts as nothing shown.
bool AppModel::showsRealAlert() const
{
    const auto &shown = m_services.overlay.eventID();
    return shown && *shown != previewID;
}

void AppModel::fire(const Meeting &meeting)
{
    AlertRecord record = m_records.value(meeting.id);
    const double due = std::max(meeting.start - screenLead, record.snoozedUntil);
    record.shownAt = now();
    setRecord(meeting.id, record);
    m_preparedID.clear();

    const QPointer<AppModel> self(this);
    m_services.overlay.show(
        meeting,
        [self, id = meeting.id] {
            if (self)
                launch(self->acknowledge(id));
        },
        [self, meeting] {
            if (self)
                self->snooze(meeting);
        });
    connect(
        &m_services.overlay, &Overlay::painted, this,
        [this, due, shown = record.shownAt] {
            qCDebug(alertLog, "due %.3f shown %.3f painted %.3f", due, shown, now());
        },
        static_cast<Qt::ConnectionType>(Qt::DirectConnection | Qt::SingleShotConnection));
    Q_EMIT alertShown(meeting.id);
}

void AppModel::prepareNextAlert()
{
    const Meeting *next = firstDue(now() + prepareAhead);
    if (!next || next->id == m_preparedID || m_services.overlay.eventID())
        return;
    m_preparedID = next->id;
    m_services.overlay.prepare(*next);
}

void AppModel::snooze(const Meeting &meeting)
{
    AlertRecord record = m_records.value(meeting.id);
    record.snoozedUntil = AlertPolicy::snoozeUntil(now(), meeting);
    setRecord(meeting.id, record);
    m_services.overlay.close();
}

QCoro::Task<> AppModel::acknowledge(QString id)
{
    markAcknowledged(id);
    if (m_mode == Mode::preview)
        co_return;
    // Both at once: neither waits for the other to fail.
    QCoro::Task<> told = tellServer(id);
    co_await silencePhone(id);
    co_await told;
}

void AppModel::markAcknowledged(const QString &id)
{
    AlertRecord record = m_records.value(id);
    record.acknowledged = true;
    setRecord(id, record);
    if (m_services.overlay.eventID() == id)
        m_services.overlay.close();
}

void AppModel::setRecord(const QString &id, const AlertRecord &record)
{
    m_records.insert(id, record);
    save();
    Q_EMIT recordsChanged();
}

void AppModel::save()
{
    if (m_mode == Mode::preview)
        return;
    const QString failure = u"Cannot save acknowledgments. Check disk space and app permissions."_s;
    m_records = AcknowledgmentLedger::pruned(std::move(m_records), now());
    m_isSaved = !m_ledger.save(m_records);
    if (!m_isSaved)
        setNotice(failure);
    else if (m_notice == failure)
        setNotice(std::nullopt);
}

void AppModel::previewAlert()
{
    const auto close = [self = QPointer<AppModel>(this)] {
        if (self)
            self->m_services.overlay.close();
    };
    m_services.overlay.show(sampleMeeting(), close, close);
}

void AppModel::pauseAlerts()
{
    setPausedUntil(UnixTime::moment(now() + pauseLength));
    m_services.overlay.close();
}

void AppModel::resumeAlerts()
{
    setPausedUntil(std::nullopt);
}

void AppModel::continuePause(double until)
{
    if (until > now())
        setPausedUntil(UnixTime::moment(std::min(until, now() + pauseLength)));
}

OverlayVisibility AppModel::overlayVisibility() const
{
    return m_services.overlay.eventID() ? OverlayVisibility::visible : OverlayVisibility::hidden;
}

void AppModel::expirePause()
{
    if (m_pausedUntil && UnixTime::seconds(*m_pausedUntil) <= now())
        setPausedUntil(std::nullopt);
}

// A clock set back would stretch a running pause or snooze by as much, also one from before a restart;
// neither lasts longer than it could have from now.
void AppModel::mendTimes()
{
    mendPhoneTimes();
    const QDateTime latest = UnixTime::moment(now() + pauseLength);
    if (m_pausedUntil && *m_pausedUntil > latest)
        setPausedUntil(latest);
    for (const Meeting &meeting : m_scheduledMeetings) {
        const auto record = m_records.find(meeting.id);
        if (record != m_records.end())
            record->snoozedUntil = std::min(record->snoozedUntil, AlertPolicy::snoozeUntil(now(), meeting));
    }
}

void AppModel::setPausedUntil(const std::optional<QDateTime> &until)
{
    if (m_pausedUntil == until)
        return;
    m_pausedUntil = until;
    Q_EMIT pausedUntilChanged();
}

void AppModel::tell(const QString &notice, NoticeKind kind)
{
    setNotice(notice, kind);
}

void AppModel::setNotice(const std::optional<QString> &notice, NoticeKind kind)
{
    if (m_notice == notice && m_noticeKind == kind)
        return;
    m_notice = notice;
    m_noticeKind = kind;
    Q_EMIT noticeChanged();
}

} // namespace quorvane
