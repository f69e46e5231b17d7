// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "posix/ThreadPriority.h"

#include <sys/resource.h>
#include <unistd.h>

namespace quorvane {

// On Linux a nice value belongs to a single thread and passes on to its child processes. At 5 a thread gets a
// quarter of the processor beside a busy one at the usual 0, and all of it on an idle machine.
void lowerThreadPriority()
{
    ::setpriority(PRIO_PROCESS, static_cast<id_t>(::gettid()), 5);
}

} // namespace quorvane
