// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "calendars/records/CalendarOption.h"
#include "core/AlertRecord.h"
#include "core/MeetingSelection.h"
#include "model/AcknowledgmentLedger.h"
#include "model/AppModelServices.h"
#include "model/FantasticalSource.h"

#include <QCoroTask>
#include <QDateTime>
#include <QSet>
#include <QTimer>

#include <memory>
#include <optional>
#include <vector>

namespace quorvane {

/// The object at the centre: it owns the meetings, the alert records, the user's choices and the texts that
/// tell how things stand, and its tick decides when an alert is shown. Everything happens on the main thread;
/// what takes time suspends and resumes there. A failing source changes a text and never takes meetings away.
class AppModel final : public QObject
{
    Q_OBJECT

public:
    enum class Mode {
        live,
        /// Sample data; nothing is read, written or started.
        preview,
    };

    /// How long before its start a meeting's screen alert begins, in seconds.
    static constexpr double screenLead = 60;
    /// How long a pause lasts, in seconds.
    static constexpr double pauseLength = 300;
    /// A refresh is due when the last one began longer ago than this, in seconds.
    static constexpr double refreshInterval = 30;

    /// Loads what was kept, starts the tick and the first refresh.
    AppModel(Mode mode, const AppModelServices &services, QObject *parent = nullptr);
    ~AppModel() override;

    /// Meetings chosen for alerts after the last refresh, by start.
    [[nodiscard]] const std::vector<Meeting> &meetings() const { return m_meetings; }
    /// All that the calendars hold for choosing, by start.
    [[nodiscard]] const std::vector<Meeting> &calendarEvents() const { return m_calendarEvents; }
    /// `meetings` that alert under the user's present choices.
    [[nodiscard]] const std::vector<Meeting> &scheduledMeetings() const { return m_scheduledMeetings; }
    [[nodiscard]] bool isScheduled(const Meeting &meeting) const;
    [[nodiscard]] const MeetingChoices &selectionOverrides() const { return m_selectionOverrides; }
    [[nodiscard]] const std::vector<Meeting> &manualMeetings() const { return m_manualMeetings; }
    /// The calendars of the system's stores.
    [[nodiscard]] const std::vector<CalendarOption> &calendars() const { return m_calendars; }
    /// The calendars of the second source, as its last good reading found them.
    [[nodiscard]] const std::vector<CalendarOption> &fantasticalCalendars() const
    {
        return m_fantastical.snapshot().calendars;
    }
    [[nodiscard]] const AlertRecords &records() const { return m_records; }

    /// One line on the calendar sources and the schedule.
    [[nodiscard]] const QString &status() const { return m_status; }
    /// One line on the second calendar source.
    [[nodiscard]] const QString &fantasticalStatus() const { return m_fantasticalStatus; }
    /// The second source was read well the last time.
    [[nodiscard]] bool fantasticalConnected() const { return m_fantastical.isConnected(); }
    /// One line on phone delivery.
    [[nodiscard]] const QString &cloudStatus() const { return m_cloudStatus; }
    /// A passing message for the user.
    [[nodiscard]] const std::optional<QString> &notice() const { return m_notice; }
    /// A calendar store has answered.
    [[nodiscard]] bool calendarAccess() const { return m_calendarAccess; }
    [[nodiscard]] bool isRefreshing() const { return m_isRefreshing; }
    /// When a source was last read without error.
    [[nodiscard]] const std::optional<QDateTime> &lastSuccessfulRead() const { return m_lastSuccessfulRead; }
    /// When the last refresh ended.
    [[nodiscard]] const std::optional<QDateTime> &lastRefresh() const { return m_lastRefresh; }
    /// Number of events that the last reading of all sources found.
    [[nodiscard]] qsizetype freshCalendarEventCount() const { return m_freshCalendarEventCount; }
    /// Screen alerts stay away until this moment.
    [[nodiscard]] const std::optional<QDateTime> &pausedUntil() const { return m_pausedUntil; }

    /// Reads all sources anew and recomputes everything. Returns at once while one is under way.
    QCoro::Task<> refresh();
    /// The once-per-second step: refreshes when due, ends a pause, shows what is due.
    void tick();
    /// Asks for access to the calendars, then refreshes.
    QCoro::Task<> connectCalendar();
    /// Lets the user choose the folder of the second source, then refreshes.
    QCoro::Task<> connectFantastical();

    /// Keeps screen alerts away for `pauseLength` and closes the one that is up.
    void pauseAlerts();
    void resumeAlerts();
    /// Takes the alert away until the snooze of `meeting` runs out.
    void snooze(const Meeting &meeting);
    /// Marks the meeting's alert as answered for good and closes it if it is up.
    QCoro::Task<> acknowledge(QString id);
    /// Shows the alert with a sample meeting; records nothing.
    void previewAlert();
    /// Writes the ledger.
    void save();

Q_SIGNALS:
    void meetingsChanged();
    void recordsChanged();
    void statusChanged();
    void noticeChanged();
    void pausedUntilChanged();
    void isRefreshingChanged();
    /// The meeting's alert has been asked for.
    void alertShown(const QString &id);

private:
    // AppModel.cpp: start-up.
    void loadPersisted();
    void beginLiveWork();
    void fillWithSample();
    [[nodiscard]] Meeting sampleMeeting() const;
    [[nodiscard]] double now() const { return m_services.clock.now(); }

    // AppModelRefresh.cpp: reading and its outcome.
    QCoro::Task<> readFantastical(QStringList excluded);
    void applyStores();
    void applyReading();
    void endRefresh();
    void chooseMeetings();
    void closeOutdatedAlert();
    void describeSources();
    void requestRefresh();

    // AppModelAlerts.cpp: firing and the user's answer.
    void alertStep();
    void fire(const Meeting &meeting);
    void prepareNextAlert();
    void expirePause();
    void mendTimes();
    void setPausedUntil(const std::optional<QDateTime> &until);
    void setNotice(const std::optional<QString> &notice);
    void setRecord(const QString &id, const AlertRecord &record);
    [[nodiscard]] const Meeting *firstDue(double at) const;
    [[nodiscard]] bool showsRealAlert() const;

    const Mode m_mode;
    AppModelServices m_services;
    AcknowledgmentLedger m_ledger;

    std::vector<Meeting> m_meetings;
    std::vector<Meeting> m_calendarEvents;
    std::vector<Meeting> m_scheduledMeetings;
    MeetingChoices m_selectionOverrides;
    std::vector<Meeting> m_manualMeetings;
    /// The schedule last confirmed by the user's own server.
    std::vector<Meeting> m_serverMeetings;
    std::optional<QDateTime> m_lastSuccessfulRead;
    qsizetype m_freshCalendarEventCount = 0;
    bool m_isRefreshing = false;
    bool m_refreshAgain = false;
    std::vector<CalendarOption> m_calendars;
    QString m_status;
    bool m_calendarAccess = false;
    FantasticalSource m_fantastical;
    QString m_fantasticalStatus;
    std::optional<QDateTime> m_lastRefresh;
    QString m_cloudStatus;
    std::optional<QString> m_notice;
    std::optional<QDateTime> m_pausedUntil;
    AlertRecords m_records;
    /// Whether the ledger holds `m_records`.
    bool m_isSaved = true;
    /// Unix time at which the last refresh began.
    double m_refreshMark = 0;
    QSet<QString> m_pendingAcks;
    std::unique_ptr<ActivityToken> m_activity;
    QTimer m_changeDelay;
    QString m_preparedID;
};

} // namespace quorvane
