// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "model/AppModel.h"

#include "async/Launch.h"
#include "core/AlertPolicy.h"
#include "core/Characters.h"
#include "network/NetworkError.h"

#include <QCoroTimer>
#include <QPointer>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace quorvane {

namespace {

constexpr qsizetype phoneTokenLength = 30;
/// After a failed message, and after a keyring that gave no token, in seconds.
constexpr double pauseAfterFailure = 30;
constexpr double pauseWithoutToken = 5;
constexpr double receiptInterval = 15;
/// Messages that are on their way at once. The service wants no more connections, and as many as a calendar
/// may hold meetings for one minute would leave the alert no file to open.
constexpr std::size_t messagesAtOnce = 2;
constexpr int silencingAttempts = 5;
constexpr std::chrono::seconds silencingPause{5};

const QString sendFailed = u"Phone alert failed. Retrying; screen alerts remain active."_s;

} // namespace

void AppModel::phoneStep()
{
    std::vector<Meeting> due;
    std::ranges::copy_if(localMeetings(), std::back_inserter(due), [this](const Meeting &meeting) {
        return AlertPolicy::shouldPush(meeting, now(), m_records.value(meeting.id)) &&
               !m_phoneLink.busy.contains(meeting.id) && m_phoneLink.retryAfter.value(meeting.id) < now();
    });
    const auto underWay = static_cast<std::size_t>(m_phoneLink.busy.size());
    due.resize(std::min(due.size(), messagesAtOnce - std::min(messagesAtOnce, underWay)));
    for (const Meeting &meeting : due) {
        m_phoneLink.busy.insert(meeting.id);
        launch(sendPhone(meeting));
    }
}

const std::vector<Meeting> &AppModel::localMeetings() const
{
    static const std::vector<Meeting> none;
    return isServerInCharge() ? none : m_scheduledMeetings;
}

QCoro::Task<bool> AppModel::hasPhoneToken()
{
    const auto token = co_await m_services.secrets.get(Secrets::pushoverToken);
    co_return token &&Characters::count(*token) == phoneTokenLength;
}

bool AppModel::isWanted(const QString &id) const
{
    return !m_records.value(id).acknowledged &&
           std::ranges::any_of(m_scheduledMeetings, [&](const Meeting &meeting) { return meeting.id == id; });
}

QCoro::Task<> AppModel::sendPhone(Meeting meeting)
{
    const QPointer<AppModel> self(this);
    const bool hasToken = co_await hasPhoneToken();
    if (!self)
        co_return;
    if (!hasToken) {
        m_phoneLink.retryAfter[meeting.id] = now() + pauseWithoutToken;
    } else if (!isWanted(meeting.id)) {
        (void)co_await m_services.network.cancelTag(meeting.id);
    } else {
        const auto receipt = co_await m_services.network.push(meeting, PushKind::alert);
        if (self)
            takeReceipt(meeting.id, receipt);
    }
    if (self)
        m_phoneLink.busy.remove(meeting.id);
}

void AppModel::takeReceipt(const QString &id, const Result<std::optional<QString>> &receipt)
{
    if (!receipt && receipt.error() == NetworkError::configuration)
        launch(m_phone.look());
    else
        m_phone.note(receipt ? PhoneWatch::Delivery::delivered : PhoneWatch::Delivery::failed);
    if (receipt) {
        AlertRecord record = m_records.value(id);
        record.phoneSent = true;
        record.receipt = *receipt;
        setRecord(id, record);
    }
    // Answered, switched off or gone while the message was on its way; one that failed may have arrived as
    // well.
    if (!isWanted(id)) {
        launch(silencePhone(id));
        return;
    }
    if (receipt) {
        m_phoneLink.retryAfter.remove(id);
        if (m_notice == sendFailed)
            setNotice(std::nullopt);
    } else {
        m_phoneLink.retryAfter[id] = now() + pauseAfterFailure;
        setNotice(sendFailed);
    }
}

// By its tag: that reaches every message about the meeting, whoever sent it and however often. Tried again
// while a message may still ring.
QCoro::Task<> AppModel::silencePhone(QString id)
{
    if (m_notice == sendFailed)
        setNotice(std::nullopt);
    const QPointer<AppModel> self(this);
    for (int attempt = 1; attempt <= silencingAttempts; ++attempt) {
        if (attempt > 1 && isWanted(id))
            co_return; // switched on again
        const bool isSilenced = co_await cancelMessages(id);
        if (!self || isSilenced)
            co_return;
        co_await QCoro::sleepFor(silencingPause * attempt);
        if (!self)
            co_return;
    }
}

/// Whether nothing is left to be done.
QCoro::Task<bool> AppModel::cancelMessages(QString id)
{
    const QPointer<AppModel> self(this);
    const bool hasToken = co_await hasPhoneToken();
    if (!self)
        co_return false;
    const std::optional<QString> receipt = m_records.value(id).receipt;
    if (hasToken) {
        Result<void> cancelled = co_await m_services.network.cancelTag(id);
        // The identifier of a meeting that only the user's server knows may be no tag.
        if (self && receipt && !cancelled && cancelled.error() == NetworkError::invalidResponse)
            cancelled = co_await m_services.network.cancel(*receipt);
        // What the service has refused it does not want to hear again; only what did not reach it is
        // repeated.
        co_return cancelled ||
            cancelled.error().category() == make_error_code(NetworkError::rejected).category();
    }
    if (m_server.isConfigured || !receipt) // nothing of ours rings, or the keyring has to answer first
        co_return !m_records.value(id).phoneSent;
    const auto cancelled = co_await m_services.network.cancel(*receipt);
    if (self && !cancelled)
        setNotice(u"Acknowledged on this Mac. Phone acknowledgment could not sync; retry from the phone."_s);
    co_return cancelled.has_value();
}

void AppModel::receiptStep()
{
    if (!isServerInCharge())
        launch(pollReceipts());
}

// One after the other, so that the service sees two connections of ours at most, and never twice within the
// interval.
QCoro::Task<> AppModel::pollReceipts()
{
    if (m_phoneLink.isPolling || now() - m_phoneLink.receiptAt <= receiptInterval)
        co_return;
    const QPointer<AppModel> self(this);
    m_phoneLink.isPolling = true;
    m_phoneLink.receiptAt = now();
    const QHash<QString, QString> open = openReceipts();
    for (auto entry = open.begin(); entry != open.end(); ++entry) {
        if (m_records.value(entry.key()).acknowledged)
            continue; // answered here since the round began
        const auto answer = co_await m_services.network.receipt(entry.value());
        if (!self)
            co_return;
        if (answer && answer->acknowledged == 1 && !m_records.value(entry.key()).acknowledged)
            launch(acknowledge(entry.key()));
        if (!answer && answer.error() == NetworkError::rejected) {
            m_phoneLink.receiptAt = now() + pauseAfterFailure; // the service shuts out who asks on and on
            break;
        }
        if (answer ? answer->expired == 1 : answer.error() == NetworkError::invalidResponse)
            m_phoneLink.spentReceipts.insert(entry.value());
    }
    m_phoneLink.isPolling = false;
}

// Those of all meetings whose message may still ring: it does so for ten minutes at most, and never much past
// two minutes after the start, which is as long as a meeting is known here.
QHash<QString, QString> AppModel::openReceipts() const
{
    QHash<QString, QString> open;
    for (const Meeting &meeting : m_calendarEvents) {
        const AlertRecord record = m_records.value(meeting.id);
        if (!record.acknowledged && record.receipt && !m_phoneLink.spentReceipts.contains(*record.receipt))
            open.insert(meeting.id, *record.receipt);
    }
    return open;
}

// A clock that was set back must not keep the phone silent for as long.
void AppModel::mendPhoneTimes()
{
    m_phoneLink.retryAfter.removeIf([this](const auto &entry) {
        return entry.value() < now() || entry.value() > now() + pauseAfterFailure;
    });
    m_phoneLink.receiptAt = std::min(m_phoneLink.receiptAt, now() + pauseAfterFailure);
}

} // namespace quorvane
