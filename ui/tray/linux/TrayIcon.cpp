// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "ui/tray/linux/TrayIcon.h"

#include "ui/components/Appearance.h"
#include "ui/tray/MenuContent.h"
#include "ui/tray/linux/TrayMenu.h"

#include <QSystemTrayIcon>

#include <chrono>

namespace quorvane {

namespace {

using namespace std::chrono_literals;

/// At login a panel of both kinds, or a bridge from the old kind to the new one, may offer the old one first.
constexpr auto patience = 8s;

} // namespace

TrayIcon::TrayIcon(MenuContent &content, QObject *parent)
    : QObject(parent)
    , m_content(content)
{
    m_patience.setSingleShot(true);
    m_patience.setInterval(patience);
    connect(&m_host, &NotifierHost::appeared, this, [this] { show(TrayKind::notifierItem); });
    connect(&m_panel, &EmbeddingPanel::appeared, &m_patience, qOverload<>(&QTimer::start));
    connect(&m_patience, &QTimer::timeout, &m_host, &NotifierHost::look);
    connect(&m_host, &NotifierHost::missed, this, [this] {
        if (!m_patience.isActive() && m_panel.isThere())
            show(TrayKind::embedded);
    });
}

TrayIcon::~TrayIcon() = default;

void TrayIcon::start()
{
    m_host.start();
    m_patience.start();
}

bool TrayIcon::mayAppear() const
{
    return !m_icon && (m_host.isLooking() || (m_patience.isActive() && m_panel.isThere()));
}

void TrayIcon::follow(const Appearance &appearance)
{
    const auto take = [this, &appearance] {
        const QColor before = m_picture.color();
        m_picture = TrayPicture(qEnvironmentVariable("XDG_CURRENT_DESKTOP"), appearance);
        if (m_icon && m_picture.color() != before)
            redraw();
    };
    connect(&appearance, &Appearance::darkChanged, this, take);
    take();
}

void TrayIcon::show(TrayKind kind)
{
    if (m_icon)
        return;
    m_kind = kind;
    m_menu = std::make_unique<TrayMenu>(m_content, kind);
    m_icon = std::make_unique<QSystemTrayIcon>();
    m_icon->setContextMenu(m_menu->menu());
    connect(m_icon.get(), &QSystemTrayIcon::activated, this,
            [this](QSystemTrayIcon::ActivationReason reason) {
                if (reason == QSystemTrayIcon::Trigger)
                    m_content.perform(MenuCommand::open);
            });
    connect(&m_content, &MenuContent::changed, this, &TrayIcon::update);
    redraw();
    update();
    m_icon->show();
    Q_EMIT appeared();
}

void TrayIcon::update()
{
    if (m_content.state() != m_drawn)
        redraw();
    if (m_content.toolTip() != m_icon->toolTip())
        m_icon->setToolTip(m_content.toolTip());
}

void TrayIcon::redraw()
{
    m_drawn = m_content.state();
    m_icon->setIcon(m_picture.of(m_drawn, m_kind));
}

} // namespace quorvane
