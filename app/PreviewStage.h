// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "core/Result.h"

#include <QImage>
#include <QUrl>
#include <QVariantMap>

class QQmlEngine;

/// Draws views without a window on any display.
namespace quorvane::PreviewStage {

/// The view of the QML file `source` with its initial `properties`, at `size`, once it is at rest. Needs a
/// QGuiApplication and Qt Quick's software renderer. Fails with `PreviewError::viewUnavailable`.
[[nodiscard]] Result<QImage> picture(QQmlEngine &engine, const QUrl &source, const QVariantMap &properties,
                                     QSize size);

} // namespace quorvane::PreviewStage
