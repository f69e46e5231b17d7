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

} // namespace quorvane::DesktopEntryText
