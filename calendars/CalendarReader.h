// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "calendars/CalendarStore.h"
#include "core/Meeting.h"

#include <QHash>

#include <memory>
#include <optional>
#include <vector>

namespace quorvane {

/// Whether calendars may be read. On this platform nobody asks for permission, so the answer is what the
/// stores do: `notDetermined` before any was asked, `denied` while none has ever answered, `fullAccess` once
/// one has. `restricted` is never given; it keeps the numbers of the other cases.
enum class AuthorizationStatus { notDetermined = 0, restricted = 1, denied = 2, fullAccess = 3 };

/// A store that did not answer the last time.
struct StoreProblem
{
    QString store;
    std::error_code error;

    bool operator==(const StoreProblem &) const = default;
};

/// What one store has last said, and how its last reading went.
struct StoreState
{
    /// What people call the store.
    QString name;
    std::error_code problem;
    /// It is being read.
    bool isBusy = false;
    /// It is simply not installed.
    bool isAbsent = false;
    std::vector<CalendarOption> calendars;
    /// Identifiers of the calendars that failed in a reading that did not fail as a whole.
    QStringList unreadableCalendars;
    /// When an account was last read without error (Unix time, seconds), by the account's title.
    QHash<QString, double> readings;

    [[nodiscard]] std::optional<double> lastRead(const QString &account) const
    {
        return readings.contains(account) ? std::optional(readings[account]) : std::nullopt;
    }
};

/// Reads the timed events of all calendar stores and turns them into meetings. `read` asks the stores; what
/// they said is held here and handed out by `calendars` and `events`, store by store as it comes, so that
/// none waits for another. A store or calendar that fails costs a line in `problems`; what it said before
/// still holds. Main thread only.
class CalendarReader final : public QObject
{
    Q_OBJECT

public:
    explicit CalendarReader(std::vector<std::unique_ptr<CalendarStore>> stores, QObject *parent = nullptr);
    ~CalendarReader() override;

    [[nodiscard]] AuthorizationStatus authorizationStatus() const;

    /// Asks the stores anew. True when one of them answers, false when none is there; fails with the error of
    /// a store that is there and does not answer.
    [[nodiscard]] QCoro::Task<Result<bool>> requestAccess();

    /// Reads all stores at once: their calendars, and the events from two minutes before `now` (Unix time,
    /// seconds) to 14 days after it in the calendars whose identifiers are not in `excluded`. Stores that are
    /// being read already are left to that reading.
    [[nodiscard]] QCoro::Task<> read(double now, QStringList excluded);

    /// All calendars of all stores by name (the user's locale, case aside), excluded ones too. Empty without
    /// access.
    [[nodiscard]] std::vector<CalendarOption> calendars() const;

    /// The meetings held, judged at `now`, of the calendars whose identifiers are not in `excluded`.
    [[nodiscard]] std::vector<Meeting> events(double now, const QStringList &excluded) const;

    /// Whether nothing is missing for want of a first answer: every store that is there has answered since
    /// the start.
    [[nodiscard]] bool hasAnswered() const;

    /// The stores whose last answer was missing or incomplete, leaving out those that are simply not
    /// installed.
    [[nodiscard]] std::vector<StoreProblem> problems() const;

    /// Each store by itself.
    [[nodiscard]] std::vector<StoreState> stores() const;

Q_SIGNALS:
    /// A calendar changed. May come in bursts.
    void changed();
    /// A store has been read, or has failed.
    void storeRead();

private:
    struct Source;

    QCoro::Task<> listStore(Source &source);
    QCoro::Task<> readStore(Source &source, double now, QStringList excluded);

    std::vector<std::unique_ptr<Source>> m_sources;
};

} // namespace quorvane
