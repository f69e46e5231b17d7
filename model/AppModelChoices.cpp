// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "model/AppModel.h"

#include "async/Launch.h"
#include "core/NewMeeting.h"

#include <QPointer>
#include <QUuid>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace quorvane {

namespace {

const QString keyringFailed =
    u"Could not save added meetings to Keychain. They may be lost after quitting."_s;
const QString choiceUnsynced =
    u"Saved on this Mac. Phone schedule has not synced yet. Reconnect and refresh."_s;
const QString meetingUnsynced = u"Meeting added on this Mac. Phone schedule has not synced yet."_s;

} // namespace

// Whoever made the choice: the user here, or another copy of this program.
void AppModel::takeChoices()
{
    chooseMeetings();
    Q_EMIT meetingsChanged();
    if (m_mode == Mode::preview)
        return;
    closeOutdatedAlert();
    describeSources();
    alertStep();
    m_changeDelay.start();
}

QCoro::Task<> AppModel::setScheduled(Meeting meeting, Switch enabled)
{
    const QPointer<AppModel> self(this);
    const int count = m_turns.count();
    if (enabled == Switch::on && !isScheduled(meeting))
        prepareAgain(meeting.id);
    m_settings.choose(meeting.id, enabled);
    if (enabled == Switch::off && m_services.overlay.eventID() == meeting.id)
        m_services.overlay.close();
    if (m_mode == Mode::preview)
        co_return;
    QCoro::Task<> persisted = persistMeetingChoices();
    if (enabled == Switch::off)
        launch(silencePhone(meeting.id));
    co_await refreshSince(count);
    co_await persisted;
    if (self)
        tellUnlessSynced(choiceUnsynced);
}

// A meeting that is switched on alerts as if for the first time: what was sent to the phone before has been
// cancelled.
void AppModel::prepareAgain(const QString &id)
{
    const auto found = m_records.constFind(id);
    if (found == m_records.cend())
        return;
    AlertRecord record = *found;
    record.snoozedUntil = 0;
    record.phoneSent = false;
    record.receipt.reset();
    m_phoneLink.retryAfter.remove(id);
    if (record != *found)
        setRecord(id, record);
}

QCoro::Task<> AppModel::addMeeting(QString title, double start, int duration, QString link)
{
    const NewMeeting wanted{.title = title, .start = start, .duration = duration, .link = link};
    if (!wanted.isAcceptable(now()))
        co_return;
    const QPointer<AppModel> self(this);
    const int count = m_turns.count();
    const Meeting meeting = wanted.meeting(QUuid::createUuid().toString(QUuid::WithoutBraces));
    m_manual.add(meeting);
    m_settings.choose(survivorOf(meeting), Switch::on);
    QCoro::Task<> persisted = persistMeetingChoices();
    co_await refreshSince(count);
    co_await persisted;
    if (self)
        tellUnlessSynced(meetingUnsynced);
}

// A calendar may hold the very same meeting, and of two such only one is kept; that one has to alert.
QString AppModel::survivorOf(const Meeting &added) const
{
    const auto isIt = [&added](const Meeting &event) { return event.id == added.id; };
    const auto isSame = [&added](const Meeting &event) {
        return event.title == added.title && event.start == added.start && event.end == added.end;
    };
    if (std::ranges::any_of(m_calendarEvents, isIt))
        return added.id;
    const auto survivor = std::ranges::find_if(m_calendarEvents, isSame);
    return survivor == m_calendarEvents.end() ? added.id : survivor->id;
}

QCoro::Task<> AppModel::deleteManualMeeting(Meeting meeting)
{
    if (!m_manual.holds(meeting.id))
        co_return;
    m_manual.remove(meeting.id);
    co_await setScheduled(meeting, Switch::off);
}

void AppModel::takeManualMeetings()
{
    if (m_mode == Mode::live) {
        applyReading();
    } else {
        std::vector<Meeting> events = m_calendarEvents;
        std::erase_if(events, [this](const Meeting &meeting) {
            return meeting.source == Meeting::manualSource && !m_manual.holds(meeting.id);
        });
        collectEvents(MeetingSelection::candidates(events, {}, m_manual.meetings(), Freshness::fresh, now()));
    }
    Q_EMIT meetingsChanged();
}

QCoro::Task<> AppModel::persistMeetingChoices()
{
    if (m_mode == Mode::preview)
        co_return;
    keepChoices();
    save();
    co_await keepManualMeetings();
}

void AppModel::keepChoices()
{
    if (!isWritten(m_settings.keepChoices()))
        return;
    // Only while every source has its say: what is not known then is over.
    if (ownFreshness() == Freshness::stale || !m_services.calendarReader.hasAnswered() || !m_manual.isKnown())
        return;
    QSet<QString> known;
    for (const Meeting &meeting : m_calendarEvents)
        known.insert(meeting.id);
    m_settings.pruneChoices(known);
}

// Until the keyring has been read once.
QCoro::Task<> AppModel::loadManualMeetings()
{
    const QPointer<AppModel> self(this);
    if (!m_manual.isKnown())
        (void)co_await m_manual.load();
    if (!self)
        co_return;
    if (m_manual.isKnown() && m_manual.isSaved())
        settleKeyring();
    else if (!m_manual.isBusy() && m_manual.mayAskAgain(now()))
        launch(retryManualMeetings());
}

void AppModel::settleKeyring()
{
    if (m_notice == keyringFailed)
        setNotice(std::nullopt);
}

// What could not be written is written as soon as the keyring can be read; that it still cannot is not told
// again.
QCoro::Task<> AppModel::retryManualMeetings()
{
    const QPointer<AppModel> self(this);
    const Result<void> kept = co_await m_manual.sync(now());
    if (self && kept)
        settleKeyring();
}

QCoro::Task<> AppModel::keepManualMeetings()
{
    if (m_manual.isKnown() && m_manual.isSaved()) {
        settleKeyring();
        co_return;
    }
    const QPointer<AppModel> self(this);
    const Result<void> kept = co_await m_manual.sync(now());
    if (!self)
        co_return;
    if (kept)
        settleKeyring();
    else
        setNotice(keyringFailed);
}

void AppModel::tellUnlessSynced(const QString &text)
{
    if (m_server.isConfigured && !m_server.isSynced && m_notice != keyringFailed)
        setNotice(text);
}

void AppModel::settleUnsynced()
{
    if (m_notice == choiceUnsynced || m_notice == meetingUnsynced)
        setNotice(std::nullopt);
}

void AppModel::join(const Meeting &meeting)
{
    const std::optional<QUrl> link = Meeting::safeJoinURL(meeting.joinURL);
    if (!link || m_mode == Mode::preview)
        return;
    m_services.opener.open(*link, [self = QPointer<AppModel>(this)](bool opened) {
        if (self && !opened)
            self->setNotice(u"The meeting link could not be opened. Check your default browser."_s);
    });
}

void AppModel::dismissNotice()
{
    setNotice(std::nullopt);
}

} // namespace quorvane
