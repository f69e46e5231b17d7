// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "posix/FileDescriptor.h"

#include <QByteArrayList>

namespace quorvane {

/// From now on this process can read below `folders` and nowhere else, write nothing, reach no TCP port and
/// send nothing to processes outside (Landlock). Files that are open stay open. A kernel without Landlock, or
/// with an older one, confines less; that is no failure.
void confineToReading(const QByteArrayList &folders);

/// The same, but the one folder, which is open, can be read, and folders, files and symbolic links can be
/// made below it; nothing can be renamed or removed.
void confineToMaking(const FileDescriptor &folder);

} // namespace quorvane
