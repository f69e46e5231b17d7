// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QByteArray>

/// Texts in desktop entries (Desktop Entry Specification 1.5).
namespace quorvane::DesktopEntryText {

/// A value of type string.
[[nodiscard]] QByteArray string(const QByteArray &value);

/// One argument of the key Exec, before it becomes a string like any other: quoted, so that it stays one
/// whatever it holds, and with no field codes in it.
[[nodiscard]] QByteArray commandArgument(const QByteArray &argument);

/// Whether Exec can start it: the specification allows no equals sign in an executable's path, and only an
/// absolute one means the same program everywhere.
[[nodiscard]] bool isExecutableNameable(const QByteArray &path);

} // namespace quorvane::DesktopEntryText
