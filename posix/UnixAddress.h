// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QByteArray>

#include <optional>

#include <sys/socket.h>
#include <sys/un.h>

namespace quorvane {

/// Where a local socket is (unix(7)).
struct UnixAddress
{
    sockaddr_un address;
    socklen_t size;

    /// `name` is the path of the socket, or "@" and a name that only the kernel knows. Absent when it is
    /// empty or longer than an address may be.
    [[nodiscard]] static std::optional<UnixAddress> of(const QByteArray &name);

    [[nodiscard]] const sockaddr *data() const { return reinterpret_cast<const sockaddr *>(&address); }
};

} // namespace quorvane
