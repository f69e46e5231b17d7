// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "ui/tray/linux/EmbeddingPanel.h"
#include "ui/tray/linux/NotifierHost.h"
#include "ui/tray/linux/TrayPicture.h"

#include <QTimer>

#include <memory>

class QSystemTrayIcon;

namespace quorvane {

class MenuContent;
class TrayMenu;

/// The program's icon in the desktop's tray, with its menu, from the moment on at which there is a tray.
/// Needs a QApplication. Nothing else in the program may touch `QSystemTrayIcon`, not even to ask whether
/// there is a tray: Qt takes the first answer for the life of the process.
class TrayIcon final : public QObject
{
    Q_OBJECT

public:
    /// `content` must outlive this.
    explicit TrayIcon(MenuContent &content, QObject *parent = nullptr);
    ~TrayIcon() override;

    /// Looks for a tray from now on.
    void start();
    /// Draws for panels that look as the desktop does. `appearance` must outlive this.
    void follow(const Appearance &appearance);

    [[nodiscard]] bool hasAppeared() const { return m_icon != nullptr; }
    /// There may be a tray already; it is being found out.
    [[nodiscard]] bool mayAppear() const;

Q_SIGNALS:
    /// There is a tray, and the icon is in it. Told once.
    void appeared();

private:
    void show(TrayKind kind);
    void update();
    void redraw();

    MenuContent &m_content;
    NotifierHost m_host;
    EmbeddingPanel m_panel;
    /// Runs while a panel that embeds icons may turn out to be one of the other kind too.
    QTimer m_patience;
    TrayPicture m_picture;
    TrayKind m_kind = TrayKind::notifierItem;
    TrayState m_drawn = TrayState::normal;
    std::unique_ptr<TrayMenu> m_menu;
    std::unique_ptr<QSystemTrayIcon> m_icon;
};

} // namespace quorvane
