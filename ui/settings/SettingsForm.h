// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "ui/settings/AlertSettings.h"
#include "ui/settings/PackagedUpdates.h"
#include "ui/settings/PhoneSettings.h"
#include "ui/settings/ServerSettings.h"
#include "ui/settings/UpdateSettings.h"

#include <QObject>
#include <QtQml/qqmlregistration.h>

namespace quorvane {

class AppModel;

/// The groups of the settings page.
class SettingsForm final : public QObject
{
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("Made with a model")
    Q_PROPERTY(quorvane::AlertSettings *alerts READ alerts CONSTANT)
    Q_PROPERTY(quorvane::ServerSettings *server READ server CONSTANT)
    Q_PROPERTY(quorvane::PhoneSettings *phone READ phone CONSTANT)
    Q_PROPERTY(quorvane::UpdateSettings *updates READ updates CONSTANT)

public:
    /// `model` must outlive this, and so must `updates`, which is null for a copy that does not update
    /// itself.
    SettingsForm(AppModel &model, UpdateSettings *updates, QObject *parent = nullptr);

    [[nodiscard]] AlertSettings *alerts() { return &m_alerts; }
    [[nodiscard]] ServerSettings *server() { return &m_server; }
    [[nodiscard]] PhoneSettings *phone() { return &m_phone; }
    [[nodiscard]] UpdateSettings *updates() const { return m_updates; }

    /// Looks again which credentials are stored: another program may have changed them.
    Q_INVOKABLE void reload();

private:
    AppModel &m_model;
    AlertSettings m_alerts;
    ServerSettings m_server;
    PhoneSettings m_phone;
    PackagedUpdates m_packaged;
    UpdateSettings *m_updates;
};

} // namespace quorvane
