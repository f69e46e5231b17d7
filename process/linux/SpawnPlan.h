// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "core/Result.h"

#include <QByteArray>

#include <vector>

#include <spawn.h>

namespace quorvane {

/// How a program is started: as the leader of a process group of its own, in the root folder, with three open
/// files and no others, and with no signal blocked or ignored, whatever holds here.
class SpawnPlan final
{
public:
    /// The descriptors that become the standard streams; each lies above standard error.
    SpawnPlan(int input, int output, int error);
    ~SpawnPlan();
    Q_DISABLE_COPY_MOVE(SpawnPlan)

    /// Starts the program at the path `arguments.front()`. `environment` holds texts of the form NAME=value.
    [[nodiscard]] Result<pid_t> spawn(std::vector<QByteArray> arguments,
                                      std::vector<QByteArray> environment) const;

private:
    void planFiles(int input, int output, int error);
    void planSignals();
    void note(int error);

    posix_spawn_file_actions_t m_files;
    posix_spawnattr_t m_attributes;
    int m_error = 0;
};

} // namespace quorvane
