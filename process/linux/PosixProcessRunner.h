// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "process/ProcessRunner.h"

namespace quorvane {

/// Runs programs by posix_spawn(3), each in a process group of its own.
class PosixProcessRunner final : public ProcessRunner
{
public:
    [[nodiscard]] Result<ProcessOutcome> run(const ProcessRequest &request) const override;
};

} // namespace quorvane
