// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "calendars/FolderChooser.h"

namespace quorvane {

/// A dialog of our own, for desktops without one. Needs a QGuiApplication. `choose` fails when the dialog
/// cannot be made, as without Qt Quick's files.
class QuickFolderChooser final : public FolderChooser
{
public:
    [[nodiscard]] QCoro::Task<Result<std::optional<QString>>> choose(FolderRequest request) override;
};

} // namespace quorvane
