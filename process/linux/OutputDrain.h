// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "posix/FileDescriptor.h"

#include <QByteArray>

namespace quorvane {

/// Takes what a program writes: keeps it up to a limit and throws the rest away, so that the program neither
/// blocks nor fills the memory.
class OutputDrain final
{
public:
    /// `end` must not block; `limit` is in bytes.
    OutputDrain(FileDescriptor end, qsizetype limit);

    /// Reads once and closes the pipe at its end.
    void readSome();

    [[nodiscard]] bool isClosed() const { return !m_end.isValid(); }
    /// -1 when closed, which poll(2) overlooks.
    [[nodiscard]] int descriptor() const { return m_end.value(); }
    [[nodiscard]] bool isCut() const { return m_isCut; }
    [[nodiscard]] QByteArray takeBytes() { return std::move(m_bytes); }

private:
    FileDescriptor m_end;
    qsizetype m_limit;
    QByteArray m_bytes;
    bool m_isCut = false;
};

} // namespace quorvane
