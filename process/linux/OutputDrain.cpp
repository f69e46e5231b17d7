// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "process/linux/OutputDrain.h"

#include <algorithm>
#include <array>
#include <cerrno>

#include <unistd.h>

namespace quorvane {

OutputDrain::OutputDrain(FileDescriptor end, qsizetype limit)
    : m_end(std::move(end))
    , m_limit(limit)
{
}

// Once and not to the last byte: a program that writes without end must not hold up the clock.
void OutputDrain::readSome()
{
    std::array<char, 65'536> chunk; // a pipe's capacity
    const ssize_t count = ::read(m_end.value(), chunk.data(), chunk.size());
    if (count < 0 && (errno == EINTR || errno == EAGAIN))
        return;
    if (count <= 0) {
        m_end = {};
        return;
    }
    const qsizetype kept = std::min<qsizetype>(count, m_limit - m_bytes.size());
    m_bytes.append(chunk.data(), kept);
    m_isCut = m_isCut || kept < count;
}

} // namespace quorvane
