// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "calendars/FolderChooser.h"

#include <QDBusConnection>

namespace quorvane {

/// The desktop's own dialog, through xdg-desktop-portal (org.freedesktop.portal.FileChooser). It has no place
/// for the request's message. `choose` fails when no portal runs or can be started, when it does not know
/// enough about folders, and when it gives up by itself (as it does when it finds no display). A portal that
/// dies while its dialog is open counts as a person who chose none; so does a folder that has no path here or
/// none in UTF-8, which QString cannot hold.
class PortalFolderChooser final : public FolderChooser
{
public:
    explicit PortalFolderChooser(QDBusConnection bus = QDBusConnection::sessionBus());

    [[nodiscard]] QCoro::Task<Result<std::optional<QString>>> choose(FolderRequest request) override;

private:
    QDBusConnection m_bus;
};

} // namespace quorvane
