// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "confinement/LowestPriority.h"

#include <linux/ioprio.h>
#include <sys/resource.h>
#include <sys/syscall.h>
#include <unistd.h>

namespace quorvane {

// A nice value and not SCHED_IDLE, which on a machine that is always busy would never come to an end.
void takeLowestPriority()
{
    constexpr int lowest = 19;
    (void)::setpriority(PRIO_PROCESS, 0, lowest);
    (void)::syscall(SYS_ioprio_set, IOPRIO_WHO_PROCESS, 0, IOPRIO_PRIO_VALUE(IOPRIO_CLASS_IDLE, 0));
}

} // namespace quorvane
