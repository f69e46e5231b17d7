// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "ui/tray/MenuEntry.h"
#include "ui/tray/linux/TrayKind.h"

#include <QMenu>

namespace quorvane {

class MenuContent;

/// A Qt menu with the entries of a `MenuContent`. It changes in place, so that one that is open stays so:
/// what comes or goes does so alone.
class TrayMenu final : public QObject
{
    Q_OBJECT

public:
    /// `content` must outlive this.
    TrayMenu(MenuContent &content, TrayKind kind);

    [[nodiscard]] QMenu *menu() { return &m_menu; }

private:
    void update();
    void makeReadable();
    void fitKinds(const MenuEntries &wanted);
    [[nodiscard]] QAction *made(const MenuEntry &entry);
    void fill(QAction &action, const MenuEntry &entry) const;

    MenuContent &m_content;
    const TrayKind m_kind;
    QMenu m_menu;
};

} // namespace quorvane
