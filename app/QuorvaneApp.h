// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "model/AppModel.h"
#include "ui/dashboard/DashboardWindow.h"

#include <QProcessEnvironment>
#include <QStringList>

#include <cstdio>
#include <memory>

namespace quorvane {

/// The composition root: builds every part of the application in the order of their dependencies and holds
/// them for the life of the process. Needs a QGuiApplication; destroy it before that.
class QuorvaneApp final
{
public:
    /// `environment` is what programs that this one starts (the browser) get; take it before anything is set
    /// for Qt. `clock` outlives the application.
    QuorvaneApp(const QStringList &arguments, const QProcessEnvironment &environment, const Clock &clock);
    ~QuorvaneApp();

    [[nodiscard]] AppModel &model() const { return *m_model; }

    /// Shows what the user sees of a start: the dashboard, unless the program comes up with the session, and
    /// the sample alert if `arguments` ask for it.
    void show(const QStringList &arguments);

    /// Tells in the terminal how things stand, for who started the program there.
    void reportTo(std::FILE *terminal);

private:
    struct Parts;

    std::unique_ptr<Parts> m_parts;
    std::unique_ptr<AppModel> m_model;
    std::unique_ptr<DashboardWindow> m_dashboard;
};

} // namespace quorvane
