// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "posix/FileDescriptor.h"
#include "update-unpacker/CompressedStream.h"
#include "update-unpacker/EntryRule.h"
#include "update-unpacker/TarReader.h"
#include "update-unpacker/UnpackedTree.h"

namespace quorvane {

/// One archive, unpacked into one empty folder.
class Unpacker final
{
public:
    /// Both are open for reading. The process should have no umask.
    Unpacker(FileDescriptor archive, FileDescriptor folder);

    /// Unpacks everything and returns once it is on the disk. Fails with `UnpackError::archiveInvalid` or the
    /// system's error in writing; the folder then holds what came before.
    [[nodiscard]] Result<void> run();

private:
    [[nodiscard]] Result<void> unpack(const ArchiveEntry &entry);
    [[nodiscard]] Result<void> unpackFile(const ArchiveEntry &entry, UnpackedTree::FileMode mode);

    CompressedStream m_stream;
    TarReader m_archive;
    EntryRule m_rule;
    UnpackedTree m_tree;
};

} // namespace quorvane
