// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "instance/linux/SessionBusProbe.h"

#include "posix/FileDescriptor.h"
#include "posix/UnixAddress.h"

#include <QByteArray>
#include <QByteArrayView>
#include <QList>

#include <cerrno>

#include <poll.h>
#include <sys/socket.h>

namespace quorvane {

namespace {

constexpr const char *variable = "DBUS_SESSION_BUS_ADDRESS";
constexpr int patience = 3'000;

/// Empty when the address is of another kind.
QByteArray socketOf(const QByteArray &address)
{
    for (const auto &[key, lead] : {std::pair{"unix:path=", ""}, std::pair{"unix:abstract=", "@"}}) {
        if (address.startsWith(key))
            return lead + QByteArray::fromPercentEncoding(address.mid(int(qstrlen(key))).split(',').first());
    }
    return {};
}

QByteArray busAddress()
{
    const QByteArray address = qgetenv(variable);
    return address.isEmpty() ? "unix:path=" + qgetenv("XDG_RUNTIME_DIR") + "/bus" : address;
}

} // namespace

// Asks for the ways to authenticate, which every bus tells whoever asks (D-Bus Specification 0.38,
// "Authentication Protocol").
bool isSessionBusResponsive()
{
    const auto address = UnixAddress::of(socketOf(busAddress()));
    if (!address)
        return true;
    const FileDescriptor bus(::socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC | SOCK_NONBLOCK, 0));
    if (!bus.isValid())
        return true;
    if (::connect(bus.value(), address->data(), address->size) != 0)
        return errno != EAGAIN; // so many wait for it already that it takes no more
    constexpr QByteArrayView question("\0AUTH\r\n", 7);
    if (::send(bus.value(), question.data(), std::size_t(question.size()), MSG_NOSIGNAL) != question.size())
        return true;
    pollfd answer{.fd = bus.value(), .events = POLLIN, .revents = 0};
    return ::poll(&answer, 1, patience) != 0;
}

void doWithoutSessionBus()
{
    qputenv(variable, "unix:path=/dev/null");
}

} // namespace quorvane
