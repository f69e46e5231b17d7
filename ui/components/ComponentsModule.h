// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

class QQmlEngine;

namespace quorvane {

class Appearance;

/// The controls, colours and type faces that all views share, as the QML module Quorvane.Components.
namespace ComponentsModule {

/// Makes the module known to QML engines. Call before anything that imports it is loaded; again is harmless.
void registerTypes();

/// As `registerTypes`; has the colours of this engine's views follow `appearance`, which must outlive the
/// engine; and lets the engine find the modules of our other rooms. Call before the engine loads anything.
void install(QQmlEngine &engine, Appearance &appearance);

/// What `install` gave to the engine; null if nothing.
[[nodiscard]] Appearance *installedAppearance(const QQmlEngine &engine);

} // namespace ComponentsModule

} // namespace quorvane
