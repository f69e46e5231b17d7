// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "calendars/FolderChooser.h"

#include <memory>
#include <vector>

namespace quorvane {

/// Asks by the first of several choosers that works on this desktop.
class DesktopFolderChooser final : public FolderChooser
{
public:
    /// In the order of preference.
    explicit DesktopFolderChooser(std::vector<std::unique_ptr<FolderChooser>> choosers);

    [[nodiscard]] QCoro::Task<Result<std::optional<QString>>> choose(FolderRequest request) override;

private:
    std::vector<std::unique_ptr<FolderChooser>> m_choosers;
};

} // namespace quorvane
