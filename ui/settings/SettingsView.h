// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

/// The settings page for QML engines: `SettingsPage` of the module Quorvane.Settings.
namespace quorvane::SettingsView {

/// Makes the module, and those that it imports, known to QML engines; again is harmless.
void registerTypes();

} // namespace quorvane::SettingsView
