// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "launch/LaunchSupervisor.h"

#include <utility>

using namespace Qt::StringLiterals;

namespace quorvane {

LaunchSupervisor::LaunchSupervisor(const ServiceManager &manager, QStringList arguments, qint32 processId)
    : m_manager(manager)
    , m_arguments(std::move(arguments))
    , m_processId(processId)
{
}

bool LaunchSupervisor::redirectToRegisteredAgent() const
{
    if (m_arguments.contains(u"--preview"_s) || !m_manager.hasAgent())
        return false;
    const Result<std::optional<qint32>> agent = m_manager.agentProcess();
    if (!agent || *agent == m_processId)
        return false;
    return m_manager.startAgent().has_value();
}

} // namespace quorvane
