// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QtGlobal>

#include <utility>

namespace quorvane {

/// An open file, closed with its owner. Invalid when opening failed; errno says why.
class FileDescriptor final
{
public:
    FileDescriptor() = default;
    explicit FileDescriptor(int descriptor)
        : m_descriptor(descriptor)
    {
    }
    FileDescriptor(FileDescriptor &&other) noexcept
        : m_descriptor(std::exchange(other.m_descriptor, -1))
    {
    }
    FileDescriptor &operator=(FileDescriptor &&other) noexcept
    {
        std::swap(m_descriptor, other.m_descriptor);
        return *this;
    }
    ~FileDescriptor();
    Q_DISABLE_COPY(FileDescriptor)

    [[nodiscard]] bool isValid() const { return m_descriptor >= 0; }
    [[nodiscard]] int value() const { return m_descriptor; }

private:
    int m_descriptor = -1;
};

} // namespace quorvane
