// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "app/QuitSignals.h"

#include <QCoreApplication>
#include <QSocketNotifier>

#include <csignal>
#include <cstdlib>

#include <sys/signalfd.h>
#include <unistd.h>

namespace quorvane {

QuitSignals::QuitSignals()
{
    sigset_t quitting;
    ::sigemptyset(&quitting);
    for (const int signal : {SIGTERM, SIGINT, SIGHUP})
        ::sigaddset(&quitting, signal);
    ::pthread_sigmask(SIG_BLOCK, &quitting, nullptr);
    m_descriptor = ::signalfd(-1, &quitting, SFD_CLOEXEC | SFD_NONBLOCK);
}

void QuitSignals::listen()
{
    auto *notifier = new QSocketNotifier(m_descriptor, QSocketNotifier::Read, this);
    connect(notifier, &QSocketNotifier::activated, this, &QuitSignals::obey);
}

// Not by quit(), which asks the windows first: an alert refuses to be closed.
void QuitSignals::obey()
{
    signalfd_siginfo received{};
    if (::read(m_descriptor, &received, sizeof received) == sizeof received)
        QCoreApplication::exit(EXIT_SUCCESS);
}

QuitSignals::~QuitSignals()
{
    ::close(m_descriptor);
}

} // namespace quorvane
