// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "ui/calendars/AccountList.h"

#include <QObject>
#include <QtQml/qqmlregistration.h>

namespace quorvane {

class AppModel;

/// What the calendars page shows and offers: sources to connect, the accounts, and which of their calendars
/// are read. Main thread only; `model` outlives it.
class CalendarChoices final : public QObject
{
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("Made by the owner of the window")
    Q_PROPERTY(quorvane::AccountList *accounts READ accounts CONSTANT)
    /// One line on the calendars of the system.
    Q_PROPERTY(QString status READ status NOTIFY changed)
    /// One line on the second source, while no account of it is listed that would show it.
    Q_PROPERTY(QString fantasticalStatus READ fantasticalStatus NOTIFY changed)
    Q_PROPERTY(QString fantasticalExplanation READ fantasticalExplanation CONSTANT)
    Q_PROPERTY(bool systemConnected READ isSystemConnected NOTIFY changed)
    Q_PROPERTY(bool fantasticalConnected READ isFantasticalConnected NOTIFY changed)
    /// Which folders the user has connected, such as "2 folders connected"; empty when none.
    Q_PROPERTY(QString foldersText READ foldersText NOTIFY changed)

public:
    explicit CalendarChoices(AppModel &model, QObject *parent = nullptr);

    [[nodiscard]] AccountList *accounts() { return &m_accounts; }
    [[nodiscard]] const QString &status() const { return m_lines.status; }
    [[nodiscard]] const QString &fantasticalStatus() const { return m_lines.fantasticalStatus; }
    [[nodiscard]] static QString fantasticalExplanation();
    [[nodiscard]] bool isSystemConnected() const { return m_lines.isSystemConnected; }
    [[nodiscard]] bool isFantasticalConnected() const { return m_lines.isFantasticalConnected; }
    [[nodiscard]] const QString &foldersText() const { return m_lines.foldersText; }

    Q_INVOKABLE void refresh();
    Q_INVOKABLE void connectSystem();
    Q_INVOKABLE void connectFolder();
    Q_INVOKABLE void connectFantastical();
    /// Forgets a folder; its files stay.
    Q_INVOKABLE void disconnectFolder(const QString &folder);
    /// Reads the calendar from now on, or no longer.
    Q_INVOKABLE void switchCalendar(const QString &id);

Q_SIGNALS:
    void changed();

private:
    struct Lines
    {
        QString status;
        QString fantasticalStatus;
        bool isSystemConnected = false;
        bool isFantasticalConnected = false;
        QString foldersText;

        bool operator==(const Lines &) const = default;
    };

    void update();
    [[nodiscard]] Lines linesNow(const std::vector<CalendarAccount> &accounts) const;

    AppModel &m_model;
    AccountList m_accounts;
    Lines m_lines;
};

} // namespace quorvane
