// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "launch/ServiceManager.h"

#include <QStringList>

namespace quorvane {

/// Decides, once at the program's start, which copy of it is to run: this one, or the agent's, which the
/// service manager starts again after a crash.
class LaunchSupervisor final
{
public:
    /// `arguments` are those of this process, `processId` is its own id. `manager` outlives the supervisor.
    LaunchSupervisor(const ServiceManager &manager, QStringList arguments, qint32 processId);

    /// Whether this copy has made sure that the agent's runs and must end now, with status 0. Whatever fails
    /// leads to false: who opens the program ends up with one that runs. Blocks as long as the manager does.
    [[nodiscard]] bool redirectToRegisteredAgent() const;

private:
    const ServiceManager &m_manager;
    QStringList m_arguments;
    qint32 m_processId;
};

} // namespace quorvane
