// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "core/Result.h"

#include <QtGlobal>

#include <optional>

namespace quorvane {

/// The user's service manager, as far as it concerns the agent: the service that keeps this program running
/// for as long as the user is logged in and starts it again after a crash. Every call asks anew and blocks,
/// at most for some seconds; it needs no event loop.
class ServiceManager
{
public:
    /// The agent's name.
    static constexpr const char *label = "me.tarnel.quorvane-app";

    ServiceManager() = default;
    virtual ~ServiceManager() = default;
    Q_DISABLE_COPY_MOVE(ServiceManager)

    /// Whether the agent is installed for this user. Only looks at files.
    [[nodiscard]] virtual bool hasAgent() const = 0;

    /// The id of the agent's process; absent while it does not run. Fails when the manager does not know the
    /// agent or does not answer.
    [[nodiscard]] virtual Result<std::optional<qint32>> agentProcess() const = 0;

    /// Starts the agent and waits until it is up; one that runs is left alone.
    [[nodiscard]] virtual Result<void> startAgent() const = 0;
};

} // namespace quorvane
