// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "app/TrayScene.h"

#include "model/Preferences.h"

namespace quorvane {

TrayScene::TrayScene(AppModel &model, const Appearance &appearance)
    : m_content(model)
{
    m_icon.follow(appearance);
    m_icon.start();
}

void TrayScene::tellWithoutTray(Preferences &preferences)
{
    m_hint = std::make_unique<TrayHint>(
        m_icon, [&preferences] { return preferences.trayHintShown(); },
        [&preferences] { static_cast<void>(preferences.rememberTrayHint()); });
}

} // namespace quorvane
