// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "posix/UnixAddress.h"

#include <algorithm>
#include <cstddef>

namespace quorvane {

std::optional<UnixAddress> UnixAddress::of(const QByteArray &name)
{
    UnixAddress result{.address = {.sun_family = AF_UNIX, .sun_path = {}}, .size = 0};
    if (name.isEmpty() || name.size() >= static_cast<qsizetype>(sizeof result.address.sun_path))
        return std::nullopt;
    std::ranges::copy(name, result.address.sun_path);
    if (name.startsWith('@'))
        result.address.sun_path[0] = '\0';
    result.size = static_cast<socklen_t>(offsetof(sockaddr_un, sun_path) + std::size_t(name.size()));
    return result;
}

} // namespace quorvane
