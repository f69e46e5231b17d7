// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "calendar-reader/ResourceLimits.h"

#include "calendars/records/FantasticalSnapshot.h"

#include <sqlite3.h>

#include <sys/prctl.h>
#include <sys/resource.h>

namespace quorvane {
namespace {

constexpr rlim_t megabyte = 1'000'000;

void limit(__rlimit_resource resource, rlim_t value)
{
    const rlimit both{value, value};
    (void)::setrlimit(resource, &both);
}

} // namespace

void limitResources()
{
    limit(RLIMIT_CORE, 0);
    limit(RLIMIT_NPROC, 0);
    limit(RLIMIT_NOFILE, 64);
    limit(RLIMIT_CPU, 12);
    // Standard output may be a file.
    limit(RLIMIT_FSIZE, 10 * FantasticalSnapshot::largest);
#if !defined(__SANITIZE_ADDRESS__) // which maps terabytes
    limit(RLIMIT_DATA, 512 * megabyte);
#endif
    ::prctl(PR_SET_DUMPABLE, 0);
    sqlite3_hard_heap_limit64(64 * static_cast<sqlite3_int64>(megabyte));
}

} // namespace quorvane
