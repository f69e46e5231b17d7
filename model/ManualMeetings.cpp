// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "model/ManualMeetings.h"

#include "network/Secrets.h"

#include <QCoroFuture>
#include <QDateTime>
#include <QPointer>

#include <algorithm>
#include <cmath>

using namespace Qt::StringLiterals;

namespace quorvane {

namespace {

Failure cancelled()
{
    return Failure(std::make_error_code(std::errc::operation_canceled));
}

void drop(std::vector<Meeting> &meetings, const QString &id)
{
    std::erase_if(meetings, [&id](const Meeting &meeting) { return meeting.id == id; });
}

} // namespace

ManualMeetings::ManualMeetings(Secrets &secrets, QObject *parent)
    : QObject(parent)
    , m_secrets(secrets)
{
}

ManualMeetings::~ManualMeetings() = default;

bool ManualMeetings::holds(const QString &id) const
{
    return std::ranges::any_of(m_meetings, [&id](const Meeting &meeting) { return meeting.id == id; });
}

bool ManualMeetings::mayAskAgain(double now) const
{
    return std::abs(now - m_refusedAt) >= pauseAfterRefusal;
}

void ManualMeetings::add(const Meeting &meeting)
{
    m_added.push_back(meeting);
    rebuild();
}

void ManualMeetings::remove(const QString &id)
{
    drop(m_added, id);
    m_removed.insert(id);
    m_everRemoved.insert(id);
    rebuild();
}

void ManualMeetings::assume(std::vector<Meeting> meetings)
{
    m_stored = std::move(meetings);
    m_isKnown = true;
    rebuild();
}

void ManualMeetings::rebuild()
{
    std::vector<Meeting> meetings = m_stored;
    for (const Meeting &meeting : m_added) {
        drop(meetings, meeting.id);
        meetings.push_back(meeting);
    }
    for (const QString &id : std::as_const(m_removed))
        drop(meetings, id);
    if (meetings == m_meetings)
        return;
    m_meetings = std::move(meetings);
    Q_EMIT changed();
}

QCoro::Task<Result<void>> ManualMeetings::sync(double now)
{
    const QPointer<ManualMeetings> self(this);
    while (m_turn) {
        const QFuture<void> ended = m_turn->future();
        co_await ended;
        if (!self)
            co_return cancelled();
    }
    m_turn = std::make_shared<QPromise<void>>();
    m_turn->start();
    const Result<void> outcome = co_await readAndWrite(now);
    if (!self)
        co_return cancelled();
    const std::shared_ptr<QPromise<void>> turn = std::exchange(m_turn, nullptr);
    turn->finish();
    co_return Result<void>(outcome);
}

// Whole or not, what can be understood counts from now on.
ManualMeetingText ManualMeetings::take(const std::optional<QString> &text)
{
    ManualMeetingText held = ManualMeetingText::of(text.value_or(QString()));
    m_isWhole = held.isWhole;
    assume(held.meetings);
    return held;
}

QCoro::Task<Result<void>> ManualMeetings::load()
{
    const QPointer<ManualMeetings> self(this);
    const auto text = co_await m_secrets.read(Secrets::manualMeetings);
    if (!text)
        co_return Failure(text.error());
    if (self && !m_isKnown)
        (void)take(*text);
    co_return Result<void>();
}

QCoro::Task<Result<void>> ManualMeetings::readAndWrite(double now)
{
    const QPointer<ManualMeetings> self(this);
    const auto text = co_await m_secrets.read(Secrets::manualMeetings);
    if (!self)
        co_return cancelled();
    if (!text)
        co_return Failure(text.error());
    if (!take(*text).isWhole) {
        const Result<void> kept = co_await setAside(**text);
        if (!self)
            co_return cancelled();
        if (!kept)
            co_return Failure(kept.error());
        Q_EMIT wasSetAside();
    } else if (isSaved()) {
        co_return Result<void>();
    }
    const std::vector<Meeting> added = m_added;
    const QSet<QString> removed = m_removed;
    std::vector<Meeting> kept = m_meetings;
    std::erase_if(kept, [now](const Meeting &meeting) { return meeting.end < now - keepEndedFor; });
    const QString fresh = ManualMeetingText::text(kept);
    const Result<void> written = co_await m_secrets.set(fresh, Secrets::manualMeetings);
    if (!self)
        co_return cancelled();
    if (!written) {
        m_refusedAt = now;
        co_return Failure(written.error());
    }
    m_refusedAt = 0;
    m_stored = std::move(kept);
    settle(added, removed);
    co_return Result<void>();
}

// What was done while these were on their way is still to be written.
void ManualMeetings::settle(const std::vector<Meeting> &added, const QSet<QString> &removed)
{
    m_isWhole = true;
    std::erase_if(m_added, [&added](const Meeting &meeting) {
        return std::ranges::find(added, meeting) != added.end();
    });
    m_removed.subtract(removed);
    rebuild();
}

// Each time under another name: nothing that was set aside is ever overwritten.
QCoro::Task<Result<void>> ManualMeetings::setAside(QString text)
{
    const QString stamp = QDateTime::currentDateTimeUtc().toString(u"yyyyMMdd-HHmmss-zzz"_s);
    const QString account = Secrets::manualMeetings + u"-unreadable-"_s + stamp;
    return m_secrets.set(text, account);
}

} // namespace quorvane
