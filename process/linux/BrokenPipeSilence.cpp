// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "process/linux/BrokenPipeSilence.h"

#include <ctime>

namespace quorvane {
namespace {

sigset_t brokenPipe()
{
    sigset_t set;
    ::sigemptyset(&set);
    ::sigaddset(&set, SIGPIPE);
    return set;
}

bool isPending()
{
    sigset_t pending;
    return ::sigpending(&pending) == 0 && ::sigismember(&pending, SIGPIPE) == 1;
}

} // namespace

BrokenPipeSilence::BrokenPipeSilence()
    : m_wasPending(isPending())
{
    const sigset_t set = brokenPipe();
    ::pthread_sigmask(SIG_BLOCK, &set, &m_former);
}

BrokenPipeSilence::~BrokenPipeSilence()
{
    const sigset_t set = brokenPipe();
    const timespec atOnce{};
    if (!m_wasPending && isPending())
        ::sigtimedwait(&set, nullptr, &atOnce);
    ::pthread_sigmask(SIG_SETMASK, &m_former, nullptr);
}

} // namespace quorvane
