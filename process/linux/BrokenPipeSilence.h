// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QtGlobal>

#include <csignal>

namespace quorvane {

/// While it lives, writing into a pipe that nobody reads any more only fails, with EPIPE: the calling thread
/// neither dies of SIGPIPE nor keeps one pending afterwards. Belongs to one thread.
class BrokenPipeSilence final
{
public:
    BrokenPipeSilence();
    ~BrokenPipeSilence();
    Q_DISABLE_COPY_MOVE(BrokenPipeSilence)

private:
    sigset_t m_former;
    bool m_wasPending;
};

} // namespace quorvane
