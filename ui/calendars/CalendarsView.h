// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

/// The calendars page, as a QML module.
namespace quorvane::CalendarsView {

/// Makes the module's types known to QML engines, and those of the modules it is made of. Again is harmless.
void registerTypes();

} // namespace quorvane::CalendarsView
