// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "launch/linux/ServiceNotifier.h"

#include "posix/FileDescriptor.h"
#include "posix/UnixAddress.h"

#include <tuple>

#include <sys/socket.h>
#include <unistd.h>

namespace quorvane {

namespace {

std::optional<std::chrono::microseconds> watchdogTime()
{
    bool isNumber = false;
    const qint64 time = qgetenv("WATCHDOG_USEC").toLongLong(&isNumber);
    if (!isNumber || time <= 0)
        return std::nullopt;
    // Inherited, the request is for another process (sd_watchdog_enabled(3)).
    if (qEnvironmentVariableIsSet("WATCHDOG_PID") && qgetenv("WATCHDOG_PID").toLongLong() != ::getpid())
        return std::nullopt;
    return std::chrono::microseconds(time);
}

} // namespace

ServiceNotifier::ServiceNotifier()
    : m_socket(qgetenv("NOTIFY_SOCKET"))
{
    if (const auto time = watchdogTime())
        m_pingInterval = *time / 3;
    for (const char *variable : {"NOTIFY_SOCKET", "WATCHDOG_USEC", "WATCHDOG_PID"})
        qunsetenv(variable);
}

void ServiceNotifier::ready()
{
    m_owesReady = !m_socket.isEmpty() && !send(QByteArrayLiteral("READY=1"));
    m_sincePing.start();
}

void ServiceNotifier::ping()
{
    if (m_owesReady)
        ready();
    if (!m_pingInterval)
        return;
    if (m_sincePing.isValid() && std::chrono::milliseconds(m_sincePing.elapsed()) < *m_pingInterval)
        return;
    // One that could not be sent is repeated with the next tick.
    if (send(QByteArrayLiteral("WATCHDOG=1")))
        m_sincePing.start();
}

void ServiceNotifier::stopping()
{
    std::ignore = send(QByteArrayLiteral("STOPPING=1"));
}

bool ServiceNotifier::send(const QByteArray &state) const
{
    const auto address = UnixAddress::of(m_socket);
    if (!address)
        return false;
    const FileDescriptor socket(::socket(AF_UNIX, SOCK_DGRAM | SOCK_CLOEXEC, 0));
    if (!socket.isValid())
        return false;
    // A manager that takes nothing must not stop the alerts.
    const timeval patience{.tv_sec = 0, .tv_usec = 200'000};
    ::setsockopt(socket.value(), SOL_SOCKET, SO_SNDTIMEO, &patience, sizeof patience);
    return ::sendto(socket.value(), state.constData(), std::size_t(state.size()), MSG_NOSIGNAL,
                    address->data(), address->size) == state.size();
}

} // namespace quorvane
