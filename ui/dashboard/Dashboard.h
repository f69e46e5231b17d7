// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "model/AppModel.h"
#include "ui/agenda/Agenda.h"
#include "ui/calendars/CalendarChoices.h"
#include "ui/dashboard/Banner.h"
#include "ui/dashboard/SidebarStatus.h"
#include "ui/settings/SettingsForm.h"
#include "ui/sheet/MeetingForm.h"

#include <QObject>
#include <QtQml/qqmlregistration.h>

#include <memory>

namespace quorvane {

/// What the window shows and does: its sections, the sheet over them, the status at the sidebar's foot. Holds
/// no rule of its own beyond which of them is in front. Main thread only; dies before the model.
class Dashboard final : public QObject
{
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("")
    Q_PROPERTY(Section section READ section WRITE setSection NOTIFY sectionChanged)
    Q_PROPERTY(quorvane::Agenda *agenda READ agenda CONSTANT)
    Q_PROPERTY(quorvane::CalendarChoices *calendars READ calendars CONSTANT)
    Q_PROPERTY(quorvane::SettingsForm *settings READ settings CONSTANT)
    Q_PROPERTY(quorvane::Banner *banner READ banner CONSTANT)
    Q_PROPERTY(bool sheetOpen READ isSheetOpen NOTIFY sheetOpenChanged)
    /// What the sheet fills in; a new one each time that it opens.
    Q_PROPERTY(quorvane::MeetingForm *sheet READ sheet NOTIFY sheetOpenChanged)
    Q_PROPERTY(QString statusLine READ statusLine NOTIFY statusChanged)
    Q_PROPERTY(QString statusDetail READ statusDetail NOTIFY statusChanged)
    Q_PROPERTY(bool needsAttention READ needsAttention NOTIFY statusChanged)
    /// Accounts that need the user.
    Q_PROPERTY(int attentionCount READ attentionCount NOTIFY statusChanged)

public:
    enum class Section { agenda, calendars, settings };
    Q_ENUM(Section)

    /// `model` and `updates` outlive it; `updates` may be null.
    Dashboard(AppModel &model, UpdateSettings *updates, QObject *parent = nullptr);
    ~Dashboard() override;

    [[nodiscard]] Section section() const { return m_section; }
    void setSection(Section section);
    [[nodiscard]] Agenda *agenda() { return &m_agenda; }
    [[nodiscard]] CalendarChoices *calendars() { return &m_calendars; }
    [[nodiscard]] SettingsForm *settings() { return &m_settings; }
    [[nodiscard]] Banner *banner() { return &m_banner; }
    [[nodiscard]] bool isSheetOpen() const { return m_isSheetOpen; }
    [[nodiscard]] MeetingForm *sheet() const { return m_sheet.get(); }
    [[nodiscard]] const QString &statusLine() const { return m_status.line; }
    [[nodiscard]] const QString &statusDetail() const { return m_status.detail; }
    [[nodiscard]] bool needsAttention() const { return m_status.needsAttention; }
    [[nodiscard]] int attentionCount() const { return m_attentionCount; }

    /// Brings the updates on the settings page into sight; an open sheet stays in front of them.
    void openUpdates();
    Q_INVOKABLE void openSheet();
    Q_INVOKABLE void closeSheet();
    Q_INVOKABLE void refresh();

Q_SIGNALS:
    void sectionChanged();
    void updatesRequested();
    void sheetOpenChanged();
    void statusChanged();

private:
    void updateStatus();
    [[nodiscard]] qsizetype watchedCalendars() const;

    AppModel &m_model;
    Section m_section = Section::agenda;
    Agenda m_agenda;
    CalendarChoices m_calendars;
    SettingsForm m_settings;
    Banner m_banner;
    bool m_isSheetOpen = false;
    std::unique_ptr<MeetingForm> m_sheet;
    SidebarStatus m_status;
    int m_attentionCount = 0;
};

} // namespace quorvane
