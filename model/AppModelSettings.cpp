// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "model/AppModel.h"

using namespace Qt::StringLiterals;

namespace quorvane {

bool AppModel::acceptsServerURL(const QString &url) const
{
    return url.isEmpty();
}

void AppModel::setSoundEnabled(Switch) {}

QCoro::Task<> AppModel::setUploadMacSnapshot(Switch)
{
    co_return;
}

QCoro::Task<SettingsOutcome> AppModel::saveCredentials(CredentialEdits)
{
    co_return SettingsOutcome();
}

QCoro::Task<SettingsOutcome> AppModel::saveServer(QString, CredentialEdits)
{
    co_return SettingsOutcome();
}

QCoro::Task<SettingsOutcome> AppModel::testPhone()
{
    co_return SettingsOutcome();
}

QCoro::Task<SettingsOutcome> AppModel::testServer()
{
    co_return SettingsOutcome();
}

QCoro::Task<SettingsOutcome> AppModel::removeSharedSchedule()
{
    co_return SettingsOutcome();
}

QCoro::Task<> AppModel::loadCredentialHints()
{
    co_return;
}

void AppModel::showPreview(PreviewContent) {}

} // namespace quorvane
