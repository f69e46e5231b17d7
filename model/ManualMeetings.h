// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "core/Meeting.h"
#include "core/Result.h"
#include "model/ManualMeetingText.h"

#include <QCoroTask>
#include <QObject>
#include <QPromise>
#include <QSet>

#include <memory>
#include <vector>

namespace quorvane {

class Secrets;

/// The meetings added by hand. They are kept in the keyring, in one text that another copy of this program
/// may change as well: so what is done here is held as a list of edits until it was applied to what the
/// keyring holds at that moment. Nothing is ever written before a reading has succeeded, since a keyring that
/// is locked at login must not look like one without meetings. Main thread only.
class ManualMeetings final : public QObject
{
    Q_OBJECT

public:
    /// Meetings that ended longer ago than this, in seconds, are dropped when the list is written.
    static constexpr double keepEndedFor = 86'400;
    /// For so long, in seconds, nothing is written by itself after a writing has failed.
    static constexpr double pauseAfterRefusal = 600;

    explicit ManualMeetings(Secrets &secrets, QObject *parent = nullptr);
    ~ManualMeetings() override;

    /// What the keyring held when it was last read, with the edits since.
    [[nodiscard]] const std::vector<Meeting> &meetings() const { return m_meetings; }
    /// Whether the keyring has been read.
    [[nodiscard]] bool isKnown() const { return m_isKnown; }
    /// Whether there is nothing that the keyring does not hold yet.
    [[nodiscard]] bool isSaved() const { return m_added.empty() && m_removed.isEmpty() && m_isWhole; }
    /// Whether a `sync` may be tried at `now` without anybody asking for it: one whose writing failed may
    /// have been declined by the person, who is not to be asked every half minute.
    [[nodiscard]] bool mayAskAgain(double now) const;
    /// Whether a `sync` is under way.
    [[nodiscard]] bool isBusy() const { return m_turn != nullptr; }
    [[nodiscard]] bool holds(const QString &id) const;
    /// Whether the meeting was removed here since the start.
    [[nodiscard]] bool wasRemoved(const QString &id) const { return m_everRemoved.contains(id); }

    /// Both change the list in memory; `sync` carries them to the keyring.
    void add(const Meeting &meeting);
    void remove(const QString &id);
    /// Takes `meetings` for what the keyring holds.
    void assume(std::vector<Meeting> meetings);

    /// Reads the keyring, unless that has been done. Fails with the reading's error.
    [[nodiscard]] QCoro::Task<Result<void>> load();

    /// Reads the keyring, applies the edits, and writes the outcome if there were any, without what is long
    /// over at `now` (Unix time, seconds). Calls do not overlap: each waits for the one before. Fails with
    /// the error of the reading, then nothing is written, or with that of the writing; the edits are then
    /// kept for the next call. A text that cannot be understood is first copied to an account of its own.
    [[nodiscard]] QCoro::Task<Result<void>> sync(double now);

Q_SIGNALS:
    /// The list is another one.
    void changed();
    /// What the keyring held could not be understood and was set aside.
    void wasSetAside();

private:
    QCoro::Task<Result<void>> readAndWrite(double now);
    QCoro::Task<Result<void>> setAside(QString text);
    [[nodiscard]] ManualMeetingText take(const std::optional<QString> &text);
    void settle(const std::vector<Meeting> &added, const QSet<QString> &removed);
    void rebuild();

    Secrets &m_secrets;
    std::vector<Meeting> m_meetings;
    /// As last read or written.
    std::vector<Meeting> m_stored;
    std::vector<Meeting> m_added;
    QSet<QString> m_removed;
    QSet<QString> m_everRemoved;
    bool m_isKnown = false;
    /// Whether all that the keyring held could be understood.
    bool m_isWhole = true;
    /// Unix time at which a writing last failed.
    double m_refusedAt = 0;
    /// Runs while a call does.
    std::shared_ptr<QPromise<void>> m_turn;
};

} // namespace quorvane
