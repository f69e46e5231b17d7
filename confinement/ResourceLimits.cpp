// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "confinement/ResourceLimits.h"

#include <sys/prctl.h>
#include <sys/resource.h>

#include <algorithm>

namespace quorvane {
namespace {

void limit(__rlimit_resource resource, rlim_t value)
{
    rlimit before{RLIM_INFINITY, RLIM_INFINITY};
    (void)::getrlimit(resource, &before);
    const rlimit both{std::min(value, before.rlim_cur), std::min(value, before.rlim_max)};
    (void)::setrlimit(resource, &both);
}

} // namespace

void limitResources(const ResourceLimits &limits)
{
    limit(RLIMIT_CORE, 0);
    limit(RLIMIT_NPROC, 0);
    limit(RLIMIT_NOFILE, 64);
    limit(RLIMIT_CPU, static_cast<rlim_t>(limits.processorTime.count()));
    limit(RLIMIT_FSIZE, limits.fileSize);
#if !defined(__SANITIZE_ADDRESS__) // which maps terabytes
    limit(RLIMIT_DATA, limits.memory);
#endif
    ::prctl(PR_SET_DUMPABLE, 0);
}

} // namespace quorvane
