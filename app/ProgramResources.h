// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QString>
#include <QStringList>

/// What is shipped with the program, found from where the program itself is, so that a whole tree can move.
namespace quorvane::ProgramResources {

/// Path of the calendar reader that belongs to the executable in `programFolder`: below that folder, as in a
/// build tree or an unpacked archive, or below the libexec folder of the tree it is installed in. Empty when
/// neither is there.
[[nodiscard]] QString calendarReader(const QString &programFolder);

/// The same of the program that unpacks an update's archive.
[[nodiscard]] QString updateUnpacker(const QString &programFolder);

/// Path of the file in which the build of that executable says what it is: in the build tree, or in the data
/// folder of the tree it is installed in. Never the user's: it is about this executable. Empty when neither
/// is there.
[[nodiscard]] QString informationDictionary(const QString &programFolder);

/// Folders in which data files of the program are looked for, the first that has one counts: the user's own
/// (XDG Base Directory Specification 0.8), that of the tree which the executable in `programFolder` is part
/// of, then the system's.
[[nodiscard]] QStringList dataFolders(const QString &programFolder);

} // namespace quorvane::ProgramResources
