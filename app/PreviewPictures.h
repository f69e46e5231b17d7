// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "app/PreviewScenes.h"
#include "core/Result.h"

#include <QImage>

namespace quorvane {
class AppModel;
}

/// The scenes as pictures. Needs a QGuiApplication made for it (`PreviewExporter::prepare`). Fails with
/// `PreviewError::viewUnavailable`.
namespace quorvane::PreviewPictures {

/// The dashboard's moment, in a model for previews, which keeps what the scene puts into it.
[[nodiscard]] Result<QImage> window(AppModel &model, const PreviewScenes::WindowScene &scene);

[[nodiscard]] Result<QImage> alert(const PreviewScenes::AlertScene &scene);

} // namespace quorvane::PreviewPictures
