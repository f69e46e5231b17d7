// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "launch/ServiceManager.h"
#include "process/ProcessRunner.h"

#include <memory>

namespace quorvane {

/// The user's systemd, asked by systemctl(1): that needs neither an application nor a bus connection, which
/// this process does not have yet when it asks.
class SystemdManager final : public ServiceManager
{
public:
    /// `unitFolders` are those in which units are looked for, the most important one first.
    SystemdManager(std::shared_ptr<const ProcessRunner> runner, QStringList unitFolders);

    /// Where the user's service manager finds the units of the user's services (systemd.unit(5)).
    [[nodiscard]] static QStringList systemUnitFolders();

    /// False too when the agent is masked, by a link to nowhere or an empty file.
    [[nodiscard]] bool hasAgent() const override;
    [[nodiscard]] Result<std::optional<qint32>> agentProcess() const override;
    [[nodiscard]] Result<void> startAgent() const override;

private:
    [[nodiscard]] Result<QByteArray> run(const QStringList &arguments,
                                         std::chrono::milliseconds timeLimit) const;

    std::shared_ptr<const ProcessRunner> m_runner;
    QStringList m_unitFolders;
};

} // namespace quorvane
