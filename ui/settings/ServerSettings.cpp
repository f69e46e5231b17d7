// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "ui/settings/ServerSettings.h"

#include "async/Launch.h"
#include "model/AppModel.h"
#include "ui/settings/FieldRules.h"

namespace quorvane {

ServerSettings::ServerSettings(AppModel &model, QObject *parent)
    : QObject(parent)
    , m_model(model)
    , m_address(FormField::Kind::open,
                [&model](const QString &text) {
                    return model.acceptsServerURL(text)
                               ? QString()
                               : tr("Use an HTTPS address without user name, password, query or fragment.");
                })
    , m_token(FormField::Kind::secret, &FieldRules::serverToken)
    , m_actions(model)
{
    connect(&model, &AppModel::settingsChanged, this, &ServerSettings::read);
    connect(&model, &AppModel::credentialHintsChanged, this, &ServerSettings::read);
    connect(&model, &AppModel::statusChanged, this, &ServerSettings::changed);
    connect(&m_actions, &GroupActions::changed, this, &ServerSettings::changed);
    for (FormField *field : {&m_address, &m_token}) {
        connect(&model, &AppModel::ticked, field, &FormField::tick);
        connect(field, &FormField::changed, this, &ServerSettings::changed);
    }
    read();
}

void ServerSettings::read()
{
    m_address.setStored(m_model.serverURL());
    m_token.setStored(m_model.credentialHints().serverToken.value_or(QString()));
    Q_EMIT changed();
}

bool ServerSettings::sharesSchedule() const
{
    return m_model.uploadMacSnapshot();
}

void ServerSettings::setSharesSchedule(bool shares)
{
    launch(m_model.setUploadMacSnapshot(shares ? Switch::on : Switch::off));
}

QString ServerSettings::note() const
{
    if (m_model.serverConfigured() && !m_model.cloudStatus().isEmpty())
        return m_model.cloudStatus();
    return tr("A server you run can alert your phone even when this computer sleeps.");
}

bool ServerSettings::canSave() const
{
    return m_address.isValid() && m_token.isValid() && !m_actions.isRunning();
}

bool ServerSettings::canTest() const
{
    return !m_model.serverURL().isEmpty() && !m_actions.isRunning();
}

void ServerSettings::save()
{
    m_address.leave();
    m_token.leave();
    if (!canSave())
        return;
    const QString address = m_address.text().trimmed();
    const CredentialEdits edits{.serverToken = m_token.change()};
    m_actions.run([this, address, edits] { return m_model.saveServer(address, edits); },
                  [this, address, edits] {
                      m_address.settle(address);
                      m_token.settle(edits.serverToken);
                  });
}

void ServerSettings::test()
{
    m_actions.run([this] { return m_model.testServer(); });
}

void ServerSettings::askToRemove()
{
    setAskingToRemove(true);
}

void ServerSettings::keepSchedule()
{
    setAskingToRemove(false);
}

void ServerSettings::removeSchedule()
{
    if (!m_isAskingToRemove)
        return;
    setAskingToRemove(false);
    m_actions.run([this] { return m_model.removeSharedSchedule(); });
}

void ServerSettings::setAskingToRemove(bool asking)
{
    m_isAskingToRemove = asking;
    Q_EMIT changed();
}

} // namespace quorvane
