// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "posix/FileDescriptor.h"

#include <QByteArray>

#include <system_error>

namespace quorvane {

/// What a program is to read, on its way into a pipe.
class InputFeed final
{
public:
    /// `end` must not block.
    InputFeed(FileDescriptor end, QByteArray bytes);

    /// Writes as much as the pipe takes, and closes it after the last byte or after an error, which it
    /// returns; an empty code when there was none.
    std::error_code writeSome();
    void close() { m_end = {}; }

    [[nodiscard]] bool isClosed() const { return !m_end.isValid(); }
    /// -1 when closed, which poll(2) overlooks.
    [[nodiscard]] int descriptor() const { return m_end.value(); }

private:
    FileDescriptor m_end;
    QByteArray m_bytes;
    qsizetype m_written = 0;
};

} // namespace quorvane
