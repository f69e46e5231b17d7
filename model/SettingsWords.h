// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "model/SettingsOutcome.h"

#include <QStringView>

#include <system_error>

/// The words in which the settings tell what came of a request. An empty error means that it went well.
namespace quorvane::SettingsWords {

/// The settings file cannot be written.
inline constexpr QStringView notWritten = u"Cannot save settings. Check disk space and app permissions.";

/// A test message sent by this machine.
[[nodiscard]] SettingsOutcome phoneTest(const std::error_code &error);
/// A test asked of the user's own server.
[[nodiscard]] SettingsOutcome serverTest(const std::error_code &error);
/// The shared schedule's removal from the user's own server.
[[nodiscard]] SettingsOutcome removal(const std::error_code &error);

} // namespace quorvane::SettingsWords
