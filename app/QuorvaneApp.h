// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "app/AppDelegate.h"
#include "instance/Activation.h"
#include "ui/dashboard/DashboardWindow.h"

#include <QProcessEnvironment>
#include <QStringList>

#include <cstdio>
#include <memory>

namespace quorvane {

class TrayScene;
class UpdateScene;
class VersionStart;

/// The composition root: builds every part of the application in the order of their dependencies and holds
/// them for the life of the process. Needs a QGuiApplication; destroy it before that.
class QuorvaneApp final
{
public:
    /// `environment` is what programs that this one starts (the browser) get. `clock` and `start` outlive the
    /// application.
    QuorvaneApp(const QStringList &arguments, const QProcessEnvironment &environment, const Clock &clock,
                VersionStart &start);
    ~QuorvaneApp();

    [[nodiscard]] AppModel &model() { return m_delegate.model(); }

    /// Shows what the user sees of a start: the tray's icon, the dashboard, unless the program comes up with
    /// the session, and the sample alert if `arguments` ask for it. Needs a QApplication.
    void show(const QStringList &arguments);

    /// Shows what another start, or the desktop, asks for.
    void activate(const Activation &activation);

    /// The event loop has ended: whether another version is to be started in this process.
    [[nodiscard]] bool finish();

    /// Tells in the terminal how things stand, for who started the program there.
    void reportTo(std::FILE *terminal);

private:
    struct Parts;

    [[nodiscard]] std::unique_ptr<AppModel> makeModel(AppModel::Mode mode);
    void followMotion();
    void showTray();

    std::unique_ptr<Parts> m_parts;
    AppDelegate m_delegate;
    std::unique_ptr<UpdateScene> m_updates;
    std::unique_ptr<DashboardWindow> m_dashboard;
    std::unique_ptr<TrayScene> m_tray;
};

} // namespace quorvane
