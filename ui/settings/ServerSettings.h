// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "ui/settings/FormField.h"
#include "ui/settings/GroupActions.h"

#include <QObject>
#include <QString>
#include <QtQml/qqmlregistration.h>

namespace quorvane {

class AppModel;

/// The user's own server: where it is, what it gets, and whether it answers.
class ServerSettings final : public QObject
{
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("Belongs to the settings")
    Q_PROPERTY(quorvane::FormField *address READ address CONSTANT)
    Q_PROPERTY(quorvane::FormField *token READ token CONSTANT)
    Q_PROPERTY(quorvane::GroupActions *actions READ actions CONSTANT)
    Q_PROPERTY(bool sharesSchedule READ sharesSchedule WRITE setSharesSchedule NOTIFY changed)
    Q_PROPERTY(QString note READ note NOTIFY changed)
    Q_PROPERTY(bool canSave READ canSave NOTIFY changed)
    Q_PROPERTY(bool canTest READ canTest NOTIFY changed)
    Q_PROPERTY(bool askingToRemove READ isAskingToRemove NOTIFY changed)

public:
    /// `model` must outlive this.
    explicit ServerSettings(AppModel &model, QObject *parent = nullptr);

    [[nodiscard]] FormField *address() { return &m_address; }
    [[nodiscard]] FormField *token() { return &m_token; }
    [[nodiscard]] GroupActions *actions() { return &m_actions; }
    /// Whether this machine's alert schedule goes to the server. Takes effect at once.
    [[nodiscard]] bool sharesSchedule() const;
    void setSharesSchedule(bool shares);
    /// How the server does; what one is good for while none is set up.
    [[nodiscard]] QString note() const;
    [[nodiscard]] bool canSave() const;
    /// Whether there is a server to ask, and nothing else goes on: for testing, and for removing from it.
    [[nodiscard]] bool canTest() const;
    /// Whether the person was asked if the shared schedule is really to be removed.
    [[nodiscard]] bool isAskingToRemove() const { return m_isAskingToRemove; }

    Q_INVOKABLE void save();
    Q_INVOKABLE void test();
    Q_INVOKABLE void askToRemove();
    Q_INVOKABLE void keepSchedule();
    Q_INVOKABLE void removeSchedule();

Q_SIGNALS:
    void changed();

private:
    void read();
    void setAskingToRemove(bool asking);

    AppModel &m_model;
    FormField m_address;
    FormField m_token;
    GroupActions m_actions;
    bool m_isAskingToRemove = false;
};

} // namespace quorvane
