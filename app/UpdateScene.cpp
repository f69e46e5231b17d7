// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "app/UpdateScene.h"

#include "app/VersionStart.h"
#include "core/UnixTime.h"
#include "instance/linux/WindowActivation.h"
#include "model/AppModel.h"
#include "ui/dashboard/DashboardWindow.h"

#include <QCoreApplication>

#include <cstdlib>

namespace quorvane {

UpdateScene::UpdateScene(const QStringList &arguments, Preferences &preferences, const Clock &clock,
                         VersionStart &start)
    : m_preferences(preferences)
    , m_start(start)
    , m_parts(preferences, clock, start.installed())
    , m_manager(m_parts.setup(arguments, [this] { return handover(); }))
    , m_notice({
          .isAlertShowing =
              [this] { return m_model && m_model->overlayVisibility() == OverlayVisibility::visible; },
          .lastTold = [&preferences] { return preferences.announcedUpdate(); },
          .remember =
              [&preferences](const QString &version) { (void)preferences.setAnnouncedUpdate(version); },
      })
{
}

void UpdateScene::begin(AppModel &model, DashboardWindow &dashboard)
{
    m_model = &model;
    m_dashboard = &dashboard;
    connect(&m_manager, &UpdateManager::relaunchRequested, this, [this] {
        m_isReplaced = true;
        // Not by quit(), which asks the windows first.
        QCoreApplication::exit(EXIT_SUCCESS);
    });
    if (model.mode() == AppModel::Mode::preview)
        return;
    if (m_manager.updatesItself()) {
        followSettings();
        notify();
    }
    connect(&m_start, &VersionStart::settled, this, [this] { m_parts.clean(); });
    takeOver();
    connect(&m_start, &VersionStart::begun, this, [this] {
        takeOver();
        if (opensWindow())
            m_dashboard->open();
    });
    m_start.follow(model);
}

void UpdateScene::followSettings()
{
    connect(&m_watch, &SettingsWatch::changed, &m_manager, &UpdateManager::takeDefaults);
    m_watch.start(m_preferences.file().path());
}

void UpdateScene::notify()
{
    connect(&m_manager, &UpdateManager::found, this,
            [this](const UpdateItem &item) { m_notice.tell(item.version, m_manager.headline()); });
    connect(&m_manager, &UpdateSettings::progressed, this, [this] {
        if (m_manager.phase() != UpdateSettings::Phase::available)
            m_notice.withdraw();
    });
    connect(&m_notice, &UpdateNotice::activated, this, [this](const QString &token) {
        const WindowActivation permission(Activation{.token = token});
        m_dashboard->openUpdates();
    });
}

void UpdateScene::takeOver()
{
    if (const std::optional<Handover> handover = m_start.handover(m_model->now())) {
        if (handover->pausedUntil)
            m_model->continuePause(*handover->pausedUntil);
        m_window = handover->window;
    }
    if (m_start.isFirst()) {
        m_manager.tellInstalled();
        tellOfStart(NoticeKind::success);
    } else if (m_start.takeSetback()) {
        m_manager.tellRolledBack();
        tellOfStart(NoticeKind::problem);
    }
}

void UpdateScene::tellOfStart(NoticeKind kind)
{
    if (!m_model->notice())
        m_model->tell(m_manager.headline(), kind);
}

void UpdateScene::checkForUpdates()
{
    if (!m_manager.updatesItself())
        return;
    m_dashboard->openUpdates();
    m_manager.checkForUpdates();
}

Handover UpdateScene::handover() const
{
    Handover handover;
    if (const auto &until = m_model->pausedUntil())
        handover.pausedUntil = UnixTime::seconds(*until);
    if (m_dashboard->isOpen())
        handover.window = Handover::Window::open;
    return handover;
}

bool UpdateScene::finish()
{
    if (!m_isReplaced)
        m_manager.installOnQuit();
    return m_isReplaced;
}

} // namespace quorvane
