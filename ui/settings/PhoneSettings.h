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

/// The phone service's credentials, and whether a message arrives.
class PhoneSettings final : public QObject
{
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("Belongs to the settings")
    Q_PROPERTY(quorvane::FormField *userKey READ userKey CONSTANT)
    Q_PROPERTY(quorvane::FormField *token READ token CONSTANT)
    Q_PROPERTY(quorvane::GroupActions *actions READ actions CONSTANT)
    Q_PROPERTY(QString lastTest READ lastTest NOTIFY changed)
    Q_PROPERTY(bool lastTestFailed READ hasLastTestFailed NOTIFY changed)
    Q_PROPERTY(QString status READ status NOTIFY changed)
    Q_PROPERTY(bool edited READ isEdited NOTIFY changed)
    Q_PROPERTY(bool canSave READ canSave NOTIFY changed)
    Q_PROPERTY(bool canTest READ canTest NOTIFY changed)

public:
    /// `model` must outlive this.
    explicit PhoneSettings(AppModel &model, QObject *parent = nullptr);

    [[nodiscard]] FormField *userKey() { return &m_userKey; }
    [[nodiscard]] FormField *token() { return &m_token; }
    [[nodiscard]] GroupActions *actions() { return &m_actions; }
    /// How the last message fared; empty when none was sent.
    [[nodiscard]] QString lastTest() const;
    [[nodiscard]] bool hasLastTestFailed() const;
    /// Who tells the phone, when this machine does; empty when a server does or no phone is set up.
    [[nodiscard]] QString status() const;
    [[nodiscard]] bool isEdited() const { return m_userKey.isEdited() || m_token.isEdited(); }
    [[nodiscard]] bool canSave() const;
    [[nodiscard]] bool canTest() const { return !m_actions.isRunning(); }

    Q_INVOKABLE void save();
    Q_INVOKABLE void test();

Q_SIGNALS:
    void changed();

private:
    void read();

    AppModel &m_model;
    FormField m_userKey;
    FormField m_token;
    GroupActions m_actions;
};

} // namespace quorvane
