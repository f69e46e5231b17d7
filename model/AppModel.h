// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "calendars/records/CalendarOption.h"
#include "core/AlertRecord.h"
#include "core/MeetingSelection.h"
#include "core/Switch.h"
#include "core/UpdatePolicy.h"
#include "model/AcknowledgmentLedger.h"
#include "model/AppModelServices.h"
#include "model/Credentials.h"
#include "model/FantasticalSource.h"
#include "model/ManualMeetings.h"
#include "model/NoticeKind.h"
#include "model/PhoneLink.h"
#include "model/PhoneWatch.h"
#include "model/PreviewContent.h"
#include "model/RefreshTurns.h"
#include "model/ServerLink.h"
#include "model/SettingsKeeper.h"
#include "model/SettingsOutcome.h"
#include "model/SourceHealth.h"

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
    /// Failures in a row of the user's server after which this machine tells the phone itself.
    static constexpr int failuresUntilBackup = 3;
    /// A refresh is due when the last one began longer ago than this, in seconds.
    static constexpr double refreshInterval = 30;

    /// Loads what was kept, starts the tick and the first refresh.
    AppModel(Mode mode, const AppModelServices &services, QObject *parent = nullptr);
    ~AppModel() override;

    [[nodiscard]] Mode mode() const { return m_mode; }
    /// Meetings chosen for alerts after the last refresh, by start.
    [[nodiscard]] const std::vector<Meeting> &meetings() const { return m_meetings; }
    /// All that the calendars hold for choosing, by start.
    [[nodiscard]] const std::vector<Meeting> &calendarEvents() const { return m_calendarEvents; }
    /// `meetings` that alert under the user's present choices.
    [[nodiscard]] const std::vector<Meeting> &scheduledMeetings() const { return m_scheduledMeetings; }
    [[nodiscard]] bool isScheduled(const Meeting &meeting) const;
    [[nodiscard]] const MeetingChoices &selectionOverrides() const { return m_settings.choices(); }
    [[nodiscard]] const std::vector<Meeting> &manualMeetings() const { return m_manual.meetings(); }
    /// The calendars of the system's stores.
    [[nodiscard]] const std::vector<CalendarOption> &calendars() const { return m_calendars; }
    /// The calendars of the second source, as its last good reading found them.
    [[nodiscard]] const std::vector<CalendarOption> &fantasticalCalendars() const
    {
        return m_fantastical.snapshot().calendars;
    }
    /// How each account's calendars are doing, by name.
    [[nodiscard]] const std::vector<SourceHealth> &sources() const { return m_sources; }
    [[nodiscard]] const AlertRecords &records() const { return m_records; }

    /// One line on the calendar sources and the schedule.
    [[nodiscard]] const QString &status() const { return m_status; }
    /// One line on the second calendar source.
    [[nodiscard]] const QString &fantasticalStatus() const { return m_fantasticalStatus; }
    /// The second source was read well the last time.
    [[nodiscard]] bool fantasticalConnected() const { return m_fantastical.isConnected(); }
    /// One line on phone delivery.
    [[nodiscard]] const QString &cloudStatus() const { return m_cloudStatus; }
    /// The user's own server has an address and, as far as the keyring tells, a token.
    [[nodiscard]] bool serverConfigured() const { return m_server.isConfigured; }
    /// The user's own server holds what is scheduled here.
    [[nodiscard]] bool scheduleSynced() const { return m_server.isSynced; }
    /// The meetings of which this machine itself tells the phone: all that are scheduled, or none while the
    /// user's server is in charge.
    [[nodiscard]] const std::vector<Meeting> &localMeetings() const;
    /// A passing message for the user.
    [[nodiscard]] const std::optional<QString> &notice() const { return m_notice; }
    [[nodiscard]] NoticeKind noticeKind() const { return m_noticeKind; }
    /// A calendar store has answered.
    [[nodiscard]] bool calendarAccess() const { return m_calendarAccess; }
    [[nodiscard]] bool isRefreshing() const { return m_turns.isRunning() || m_isPreviewRefreshing; }
    /// When a source was last read without error.
    [[nodiscard]] const std::optional<QDateTime> &lastSuccessfulRead() const { return m_lastSuccessfulRead; }
    /// When the last refresh ended.
    [[nodiscard]] const std::optional<QDateTime> &lastRefresh() const { return m_lastRefresh; }
    /// Number of events that the last reading of all sources found; a store of the system that failed counts
    /// with what it said before.
    [[nodiscard]] qsizetype freshCalendarEventCount() const { return m_freshCalendarEventCount; }
    /// Screen alerts stay away until this moment.
    [[nodiscard]] const std::optional<QDateTime> &pausedUntil() const { return m_pausedUntil; }
    [[nodiscard]] OverlayVisibility overlayVisibility() const;
    /// Unix time in seconds, by the model's clock.
    [[nodiscard]] double now() const { return m_services.clock.now(); }

    [[nodiscard]] const QStringList &excludedCalendars() const
    {
        return m_settings.values().excludedCalendars;
    }
    [[nodiscard]] bool soundEnabled() const { return m_settings.values().soundEnabled; }
    [[nodiscard]] bool uploadMacSnapshot() const { return m_settings.values().uploadMacSnapshot; }
    [[nodiscard]] const QString &serverURL() const { return m_settings.values().serverURL; }
    /// Whether `url` may be stored: it is empty or an address that the server's protocol can use.
    [[nodiscard]] bool acceptsServerURL(const QString &url) const;
    /// What `loadCredentialHints` found last.
    [[nodiscard]] const CredentialHints &credentialHints() const { return m_credentialHints; }
    [[nodiscard]] const PhoneHealth &phoneHealth() const { return m_phone.health(); }

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
    /// Takes up a pause, until that Unix time in seconds, from another copy of the program; never for longer
    /// than `pauseLength` from now.
    void continuePause(double until);
    /// Takes the alert away until the snooze of `meeting` runs out.
    void snooze(const Meeting &meeting);
    /// Marks the meeting's alert as answered for good and closes it if it is up.
    QCoro::Task<> acknowledge(QString id);
    /// Shows the alert with a sample meeting; records nothing.
    void previewAlert();
    /// Writes the ledger.
    void save();

    /// Lets the meeting alert or keeps it from it, whatever it is, and refreshes.
    QCoro::Task<> setScheduled(Meeting meeting, Switch enabled);
    /// Adds a meeting that is in no calendar, `start` Unix time in seconds and `duration` in minutes, and
    /// refreshes. Refused without any effect are a title or link that is too long, a start that is not within
    /// the next 14 days, a duration below 1, and a link that is neither empty nor safe to open.
    QCoro::Task<> addMeeting(QString title, double start, int duration, QString link);
    /// Forgets a hand-added meeting, closes its alert, silences the phone and refreshes.
    QCoro::Task<> deleteManualMeeting(Meeting meeting);
    /// Writes the choices, the hand-added meetings and the ledger.
    QCoro::Task<> persistMeetingChoices();
    /// Opens the meeting's link in the browser; a failure becomes a notice.
    void join(const Meeting &meeting);
    /// Shows a passing message.
    void tell(const QString &notice, NoticeKind kind);
    void dismissNotice();
    /// Reads or leaves out the calendar from now on.
    QCoro::Task<> setCalendarEnabled(QString id, Switch enabled);
    /// Lets the user choose a folder of calendars, then reads it.
    QCoro::Task<> connectCalendarFolder();
    /// Forgets a folder that was connected; its files stay as they are.
    QCoro::Task<> disconnectCalendarFolder(QString folder);

    void setSoundEnabled(Switch enabled);
    QCoro::Task<> setUploadMacSnapshot(Switch enabled);
    /// Stores credentials and hands those of the phone service to the user's server.
    QCoro::Task<SettingsOutcome> saveCredentials(CredentialEdits edits);
    /// Stores the address of the user's server and its token, then refreshes. An address that cannot be used
    /// is refused.
    QCoro::Task<SettingsOutcome> saveServer(QString url, CredentialEdits edits);
    /// Sends a message to the phone from this machine, or has the user's server send one.
    QCoro::Task<SettingsOutcome> testPhone();
    QCoro::Task<SettingsOutcome> testServer();
    /// Takes the schedule off the user's server and shares none any more.
    QCoro::Task<SettingsOutcome> removeSharedSchedule();
    /// Asks the keyring what is stored; it tells how each value ends and no more.
    QCoro::Task<> loadCredentialHints();

    /// Shows `content`. In preview mode only.
    void showPreview(PreviewContent content);

Q_SIGNALS:
    /// A second has passed.
    void ticked();
    void settingsChanged();
    void credentialHintsChanged();
    void sourcesChanged();
    /// The calendars, or which of them are left out.
    void calendarsChanged();
    void phoneHealthChanged();
    /// The meetings, the events, the hand-added ones or the choices.
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

    void connectCollaborators();
    void followSettings();
    void tellAll();

    // AppModelChoices.cpp: what the user chooses and adds.
    void takeChoices();
    void takeManualMeetings();
    void keepChoices();
    void prepareAgain(const QString &id);
    QCoro::Task<> loadManualMeetings();
    QCoro::Task<> retryManualMeetings();
    void settleKeyring();
    [[nodiscard]] QString survivorOf(const Meeting &added) const;
    QCoro::Task<> keepManualMeetings();
    void tellUnlessSynced(const QString &text);
    void settleUnsynced();

    // AppModelSettings.cpp: the settings.
    void takeSettings(const UserSettings &before);
    void forgetServer();
    QCoro::Task<bool> storeCredentials(CredentialEdits edits);
    QCoro::Task<bool> handOverPhone();
    [[nodiscard]] bool isWritten(const Result<void> &outcome);

    // AppModelSources.cpp: accounts, calendars and their folders.
    void listSources();
    QCoro::Task<std::optional<QString>> askForFolder();

    // AppModelRefresh.cpp: reading and its outcome.
    QCoro::Task<> refreshSince(int count);
    QCoro::Task<> readFantastical(QStringList excluded);
    QCoro::Task<> lookForCache();
    void applyStores();
    void applyReading();
    void endRefresh();
    bool chooseMeetings();
    void collectEvents(std::vector<Meeting> events);
    void closeOutdatedAlert();
    void describeSources();
    void requestRefresh();

    [[nodiscard]] Freshness ownFreshness() const;
    [[nodiscard]] bool isSecondSourceExpected() const;

    // AppModelServer.cpp: the user's own server.
    QCoro::Task<> exchangeWithServer();
    QCoro::Task<std::optional<bool>> readServerConfigured();
    enum class UploadOutcome { notWanted, taken, failed };
    QCoro::Task<UploadOutcome> uploadSchedule();
    QCoro::Task<> resendAcknowledgments();
    QCoro::Task<> tellServer(QString id);
    void workAlone();
    void countServerFailure();
    void takeServerState(const ServerState &state);
    void judgeServer(const ServerState &state, UploadOutcome uploaded);
    void silenceAcknowledged(const std::vector<Meeting> &meetings);
    [[nodiscard]] std::vector<Meeting> ownSchedule() const;
    [[nodiscard]] bool isUpcoming(const QString &id) const;
    void settleAcknowledgment(const QString &id);
    void keepPendingAcks();
    [[nodiscard]] bool isServerInCharge() const;
    [[nodiscard]] bool wasJustTold() const;

    // AppModelPhone.cpp: the phone, from this machine.
    void phoneStep();
    void receiptStep();
    QCoro::Task<> sendPhone(Meeting meeting);
    QCoro::Task<> silencePhone(QString id);
    QCoro::Task<bool> cancelMessages(QString id);
    QCoro::Task<> pollReceipts();
    QCoro::Task<bool> hasPhoneToken();
    void takeReceipt(const QString &id, const Result<std::optional<QString>> &receipt);
    void mendPhoneTimes();
    [[nodiscard]] bool isWanted(const QString &id) const;
    [[nodiscard]] QHash<QString, QString> openReceipts() const;

    // AppModelAlerts.cpp: firing and the user's answer.
    void alertStep();
    void fire(const Meeting &meeting);
    void prepareNextAlert();
    void expirePause();
    void mendTimes();
    void setPausedUntil(const std::optional<QDateTime> &until);
    void setNotice(const std::optional<QString> &notice, NoticeKind kind = NoticeKind::problem);
    void setRecord(const QString &id, const AlertRecord &record);
    void markAcknowledged(const QString &id);
    [[nodiscard]] const Meeting *firstDue(double at) const;
    [[nodiscard]] bool showsRealAlert() const;

    const Mode m_mode;
    AppModelServices m_services;
    AcknowledgmentLedger m_ledger;

    std::vector<Meeting> m_meetings;
    std::vector<Meeting> m_calendarEvents;
    std::vector<Meeting> m_scheduledMeetings;
    ManualMeetings m_manual;
    std::optional<QDateTime> m_lastSuccessfulRead;
    qsizetype m_freshCalendarEventCount = 0;
    bool m_refreshAgain = false;
    std::vector<CalendarOption> m_calendars;
    QString m_status;
    bool m_calendarAccess = false;
    FantasticalSource m_fantastical;
    /// Whether the second source may be there without having been chosen.
    bool m_isCacheExpected = false;
    QString m_fantasticalStatus;
    std::optional<QDateTime> m_lastRefresh;
    QString m_cloudStatus;
    std::optional<QString> m_notice;
    NoticeKind m_noticeKind = NoticeKind::problem;
    std::optional<QDateTime> m_pausedUntil;
    AlertRecords m_records;
    /// Whether the ledger holds `m_records`.
    bool m_isSaved = true;
    /// Unix time at which the last refresh began.
    double m_refreshMark = 0;
    /// Counts the changes of what is scheduled.
    int m_scheduleRevision = 0;
    ServerLink m_server;
    PhoneLink m_phoneLink;
    RefreshTurns m_turns;
    /// Identifiers of the meetings that were read here or added by hand.
    QSet<QString> m_ownIDs;
    /// Acknowledgments that the server has not confirmed.
    QSet<QString> m_pendingAcks;
    /// Whether the settings hold `m_pendingAcks`.
    bool m_arePendingAcksKept = true;
    /// An address and a token are being saved.
    bool m_isServerChanging = false;
    bool m_isResending = false;
    std::unique_ptr<ActivityToken> m_activity;
    QTimer m_changeDelay;
    QString m_preparedID;
    SettingsKeeper m_settings;
    Credentials m_credentials;
    CredentialHints m_credentialHints;
    PhoneWatch m_phone;
    std::vector<SourceHealth> m_sources;
    bool m_isChoosingFolder = false;
    bool m_isPreviewRefreshing = false;
};

} // namespace quorvane
