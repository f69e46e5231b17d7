// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QUrl>

/// The content of an alert panel: a QML component whose root item takes the keyboard focus.
namespace quorvane::TakeoverView {

/// Makes the component's types and files known to QML engines. Call before `source` is loaded; again is
/// harmless.
void registerTypes();

/// The component. Its root has the required property `takeover` (a `Takeover *` that outlives the view); give
/// it with QQuickView::setInitialProperties and let the root follow the window's size.
[[nodiscard]] QUrl source();

} // namespace quorvane::TakeoverView
