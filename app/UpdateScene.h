// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "app/UpdateManager.h"
#include "app/UpdateParts.h"
#include "model/NoticeKind.h"
#include "model/SettingsWatch.h"
#include "ui/tray/linux/UpdateNotice.h"

#include <QString>
#include <QStringList>

namespace quorvane {

class DashboardWindow;
class VersionStart;

/// Updating as the person meets it: in the window, by a notification, and as a program that is a newer one
/// after a moment. Needs a QApplication. Main thread only.
class UpdateScene final : public QObject
{
    Q_OBJECT

public:
    /// All outlive it; `arguments` are those of the process.
    UpdateScene(const QStringList &arguments, Preferences &preferences, const Clock &clock,
                VersionStart &start);

    [[nodiscard]] UpdateManager &manager() { return m_manager; }

    /// Takes over from the version before this one, and goes on from there. Both live as long as the event
    /// loop runs.
    void begin(AppModel &model, DashboardWindow &dashboard);

    /// Looks for a newer version before the person's eyes, in copies that update themselves.
    void checkForUpdates();

    /// Whether the version before this one had its window open.
    [[nodiscard]] bool opensWindow() const { return m_window == Handover::Window::open; }

    /// The event loop has ended: whether another version is to be started in this process. An update that
    /// waited for the end is installed by the next start.
    [[nodiscard]] bool finish();

private:
    void takeOver();
    void tellOfStart(NoticeKind kind);
    void followSettings();
    void notify();
    [[nodiscard]] Handover handover() const;

    Preferences &m_preferences;
    VersionStart &m_start;
    UpdateParts m_parts;
    UpdateManager m_manager;
    UpdateNotice m_notice;
    SettingsWatch m_watch;
    AppModel *m_model = nullptr;
    DashboardWindow *m_dashboard = nullptr;
    Handover::Window m_window = Handover::Window::closed;
    bool m_isReplaced = false;
};

} // namespace quorvane
