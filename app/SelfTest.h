// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QString>

#include <optional>

/// Whether this version of the program can work on this machine: what it says of itself, the executables and
/// the modules that it needs, and whether its views can be drawn. No display is needed.
namespace quorvane::SelfTest {

/// Puts everything of the user's out of this process's reach: files, buses, keyring, displays. Call it before
/// the QGuiApplication is made.
void prepare();

/// What keeps the program with the executable in `programFolder` from working, as one sentence; absent when
/// nothing does. Needs a QGuiApplication made for this (`prepare`). Takes some seconds at most.
[[nodiscard]] std::optional<QString> fault(const QString &programFolder);

/// The program in `programFolder`, as "Quorvane 0.1.0 (812)".
[[nodiscard]] QString version(const QString &programFolder);

} // namespace quorvane::SelfTest
