// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "launch/linux/ServiceStart.h"

#include <QtGlobal>

#include <unistd.h>

namespace quorvane {

// The variable is inherited by what a service starts, so it has to name this process.
bool isStartedAsService()
{
    return qEnvironmentVariableIntValue("SYSTEMD_EXEC_PID") == ::getpid();
}

} // namespace quorvane
