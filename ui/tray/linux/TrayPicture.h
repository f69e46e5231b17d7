// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "ui/tray/TrayState.h"
#include "ui/tray/linux/TrayKind.h"

#include <QIcon>

namespace quorvane {

class Appearance;

/// The tray's icon in the colour of the panel's text.
class TrayPicture
{
public:
    /// On a panel that is dark, as most are.
    TrayPicture();
    /// On the desktops of this name (as in XDG_CURRENT_DESKTOP) while they look like this.
    TrayPicture(const QString &currentDesktop, const Appearance &appearance);

    [[nodiscard]] QColor color() const { return m_color; }

    /// By name where the icon theme has it and the panel looks it up and colours it; else as pixels.
    [[nodiscard]] QIcon of(TrayState state, TrayKind kind) const;

private:
    [[nodiscard]] QPixmap drawn(const QString &name, int side) const;

    QColor m_color;
    bool m_panelColors = false;
};

} // namespace quorvane
