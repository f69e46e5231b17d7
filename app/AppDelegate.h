// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "model/AppModel.h"

#include <QStringList>

#include <functional>
#include <memory>

namespace quorvane {

class UpdateManager;

/// Owns the process's one model: whoever shows or changes anything gets it here.
class AppDelegate final
{
public:
    using MakeModel = std::function<std::unique_ptr<AppModel>(AppModel::Mode)>;

    /// `arguments` are those of the process. `makeModel` is called at most once.
    AppDelegate(QStringList arguments, MakeModel makeModel);

    /// Made when it is asked for first, with sample data if the arguments contain "--preview".
    [[nodiscard]] AppModel &model();

    /// Makes the model and lets `updates` begin. A secret that is handed in never comes here: the command
    /// line has taken it and has ended.
    void applicationDidFinishLaunching(UpdateManager &updates);

    /// Closing the dashboard leaves the program at work.
    static constexpr bool applicationShouldTerminateAfterLastWindowClosed = false;

private:
    QStringList m_arguments;
    MakeModel m_makeModel;
    std::unique_ptr<AppModel> m_model;
};

} // namespace quorvane
