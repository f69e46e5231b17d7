// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

/// The agenda page for QML engines: `AgendaPage` of the module Quorvane.Agenda.
namespace quorvane::AgendaView {

/// Makes the module, and those that it imports, known to QML engines; again is harmless.
void registerTypes();

} // namespace quorvane::AgendaView
