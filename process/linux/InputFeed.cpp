// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "process/linux/InputFeed.h"

#include "posix/SystemError.h"

#include <unistd.h>

namespace quorvane {

InputFeed::InputFeed(FileDescriptor end, QByteArray bytes)
    : m_end(std::move(end))
    , m_bytes(std::move(bytes))
{
}

std::error_code InputFeed::writeSome()
{
    while (m_written < m_bytes.size()) {
        const auto left = static_cast<std::size_t>(m_bytes.size() - m_written);
        const ssize_t count = ::write(m_end.value(), m_bytes.constData() + m_written, left);
        if (count < 0 && errno == EINTR)
            continue;
        if (count < 0 && errno == EAGAIN)
            return {};
        if (count < 0) {
            const std::error_code error = systemError();
            close();
            return error;
        }
        m_written += count;
    }
    close();
    return {};
}

} // namespace quorvane
