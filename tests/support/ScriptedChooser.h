// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "calendars/FolderChooser.h"

namespace quorvane {

/// Stands for a person before the folder dialog.
class ScriptedChooser final : public FolderChooser
{
public:
    [[nodiscard]] QCoro::Task<Result<std::optional<QString>>> choose(FolderRequest) override
    {
        co_return Result<std::optional<QString>>(answer);
    }

    /// The folder that is chosen; none when the dialog is dismissed.
    std::optional<QString> answer;
};

} // namespace quorvane
