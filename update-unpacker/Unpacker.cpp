// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "update-unpacker/Unpacker.h"

#include "posix/SystemError.h"
#include "update-unpacker/UnpackError.h"

#include <unistd.h>

#include <utility>

namespace quorvane {
namespace {

Result<void> write(const FileDescriptor &file, std::span<const char> bytes)
{
    while (!bytes.empty()) {
        const ssize_t count = ::write(file.value(), bytes.data(), bytes.size());
        if (count < 0 && errno != EINTR)
            return Failure(systemError());
        if (count > 0)
            bytes = bytes.subspan(static_cast<std::size_t>(count));
    }
    return {};
}

} // namespace

Unpacker::Unpacker(FileDescriptor archive, FileDescriptor folder)
    : m_stream(std::move(archive))
    , m_archive(m_stream)
    , m_tree(std::move(folder))
{
}

Result<void> Unpacker::run()
{
    for (;;) {
        const Result<std::optional<ArchiveEntry>> entry = m_archive.next();
        if (!entry)
            return Failure(entry.error());
        if (!*entry)
            break;
        if (!m_rule.accepts(**entry))
            return Failure(UnpackError::archiveInvalid);
        if (const Result<void> unpacked = unpack(**entry); !unpacked)
            return unpacked;
    }
    if (m_rule.isEmpty())
        return Failure(UnpackError::archiveInvalid);
    return m_tree.flush();
}

Result<void> Unpacker::unpack(const ArchiveEntry &entry)
{
    switch (entry.kind) {
    case ArchiveEntry::Kind::file:
        return unpackFile(entry, UnpackedTree::FileMode::file);
    case ArchiveEntry::Kind::program:
        return unpackFile(entry, UnpackedTree::FileMode::program);
    case ArchiveEntry::Kind::folder:
        return m_tree.makeFolder(entry.path);
    case ArchiveEntry::Kind::link:
        return m_tree.makeLink(entry.path, entry.target);
    case ArchiveEntry::Kind::other:
        break;
    }
    return Failure(UnpackError::archiveInvalid);
}

Result<void> Unpacker::unpackFile(const ArchiveEntry &entry, UnpackedTree::FileMode mode)
{
    const Result<FileDescriptor> file = m_tree.makeFile(entry.path, mode);
    if (!file)
        return Failure(file.error());
    std::int64_t left = entry.size;
    for (;;) {
        const Result<std::span<const char>> bytes = m_archive.read();
        if (!bytes)
            return Failure(bytes.error());
        if (bytes->empty())
            break;
        left -= static_cast<std::int64_t>(bytes->size());
        if (left < 0)
            return Failure(UnpackError::archiveInvalid);
        if (const Result<void> written = write(*file, *bytes); !written)
            return written;
    }
    if (left != 0)
        return Failure(UnpackError::archiveInvalid);
    // At once, so that no heap of unwritten bytes keeps other programs' flushes waiting.
    if (::fsync(file->value()) != 0)
        return Failure(systemError());
    return {};
}

} // namespace quorvane
