// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "calendars/linux/DesktopFolderChooser.h"

namespace quorvane {

DesktopFolderChooser::DesktopFolderChooser(std::vector<std::unique_ptr<FolderChooser>> choosers)
    : m_choosers(std::move(choosers))
{
}

QCoro::Task<Result<std::optional<QString>>> DesktopFolderChooser::choose(FolderRequest request)
{
    for (const std::unique_ptr<FolderChooser> &chooser : m_choosers) {
        Result<std::optional<QString>> answer = co_await chooser->choose(request);
        if (answer)
            co_return answer;
    }
    co_return notSupported();
}

} // namespace quorvane
