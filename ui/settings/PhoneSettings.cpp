// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "ui/settings/PhoneSettings.h"

#include "core/UnixTime.h"
#include "model/AppModel.h"
#include "ui/format/MeetingFormat.h"
#include "ui/settings/FieldRules.h"

#include <QLocale>

namespace quorvane {

PhoneSettings::PhoneSettings(AppModel &model, QObject *parent)
    : QObject(parent)
    , m_model(model)
    , m_userKey(FormField::Kind::secret, &FieldRules::pushoverUser)
    , m_token(FormField::Kind::secret, &FieldRules::pushoverToken)
    , m_actions(model)
{
    connect(&model, &AppModel::credentialHintsChanged, this, &PhoneSettings::read);
    connect(&model, &AppModel::phoneHealthChanged, this, &PhoneSettings::changed);
    connect(&model, &AppModel::statusChanged, this, &PhoneSettings::changed);
    connect(&m_actions, &GroupActions::changed, this, &PhoneSettings::changed);
    for (FormField *field : {&m_userKey, &m_token}) {
        connect(&model, &AppModel::ticked, field, &FormField::tick);
        connect(field, &FormField::changed, this, &PhoneSettings::changed);
    }
    read();
}

void PhoneSettings::read()
{
    m_userKey.setStored(m_model.credentialHints().pushoverUser.value_or(QString()));
    m_token.setStored(m_model.credentialHints().pushoverToken.value_or(QString()));
    Q_EMIT changed();
}

QString PhoneSettings::lastTest() const
{
    const PhoneHealth health = m_model.phoneHealth();
    if (health.state == PhoneHealth::State::failed)
        return tr("Last message failed");
    if (health.state != PhoneHealth::State::ready || !health.testedAt)
        return {};
    const double testedAt = UnixTime::seconds(*health.testedAt);
    const QDate today = QDateTime::fromSecsSinceEpoch(static_cast<qint64>(m_model.now())).date();
    const QDate day = health.testedAt->toLocalTime().date();
    return day == today ? tr("Delivered %1").arg(MeetingFormat::clockTime(testedAt))
                        : tr("Delivered %1").arg(QLocale().toString(day, QLocale::ShortFormat));
}

bool PhoneSettings::hasLastTestFailed() const
{
    return m_model.phoneHealth().state == PhoneHealth::State::failed;
}

QString PhoneSettings::status() const
{
    const CredentialHints &hints = m_model.credentialHints();
    const bool isSetUp = hints.pushoverUser && hints.pushoverToken;
    return isSetUp && !m_model.serverConfigured() ? m_model.cloudStatus() : QString();
}

bool PhoneSettings::canSave() const
{
    return isEdited() && m_userKey.isValid() && m_token.isValid() && !m_actions.isRunning();
}

void PhoneSettings::save()
{
    m_userKey.leave();
    m_token.leave();
    if (!canSave())
        return;
    const CredentialEdits edits{.pushoverUser = m_userKey.change(), .pushoverToken = m_token.change()};
    m_actions.run([this, edits] { return m_model.saveCredentials(edits); },
                  [this, edits] {
                      m_userKey.settle(edits.pushoverUser);
                      m_token.settle(edits.pushoverToken);
                  });
}

void PhoneSettings::test()
{
    m_actions.run([this] { return m_model.testPhone(); });
}

} // namespace quorvane
