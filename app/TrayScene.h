// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "ui/tray/MenuContent.h"
#include "ui/tray/linux/TrayHint.h"
#include "ui/tray/linux/TrayIcon.h"

#include <memory>

namespace quorvane {

class Appearance;
class Preferences;

/// The tray's icon with its menu, and the word to who has no tray. Needs a QApplication.
class TrayScene final
{
public:
    /// All outlive it.
    TrayScene(AppModel &model, const Appearance &appearance);

    /// Tells the user if there turns out to be no tray, unless `preferences`, which outlives this, knows that
    /// it was done.
    void tellWithoutTray(Preferences &preferences);

    [[nodiscard]] const MenuContent &content() const { return m_content; }

private:
    MenuContent m_content;
    TrayIcon m_icon{m_content};
    std::unique_ptr<TrayHint> m_hint;
};

} // namespace quorvane
