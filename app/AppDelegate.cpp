// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "app/AppDelegate.h"

#include "app/UpdateManager.h"

using namespace Qt::StringLiterals;

namespace quorvane {

AppDelegate::AppDelegate(QStringList arguments, MakeModel makeModel)
    : m_arguments(std::move(arguments))
    , m_makeModel(std::move(makeModel))
{
}

AppModel &AppDelegate::model()
{
    if (!m_model)
        m_model = m_makeModel(m_arguments.contains(u"--preview"_s) ? AppModel::Mode::preview
                                                                   : AppModel::Mode::live);
    return *m_model;
}

void AppDelegate::applicationDidFinishLaunching(UpdateManager &updates)
{
    updates.start(model());
}

} // namespace quorvane
