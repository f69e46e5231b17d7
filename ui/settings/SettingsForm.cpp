// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "ui/settings/SettingsForm.h"

#include "async/Launch.h"
#include "model/AppModel.h"

namespace quorvane {

SettingsForm::SettingsForm(AppModel &model, UpdateSettings *updates, QObject *parent)
    : QObject(parent)
    , m_model(model)
    , m_alerts(model)
    , m_server(model)
    , m_phone(model)
    , m_updates(updates ? updates : &m_packaged)
{
}

void SettingsForm::reload()
{
    launch(m_model.loadCredentialHints());
}

} // namespace quorvane
