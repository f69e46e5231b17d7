// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QUrl>

#include <functional>

namespace quorvane {

/// Opens links in the program that the user's desktop has chosen for them.
class LinkOpener
{
public:
    virtual ~LinkOpener() = default;

    /// Opens `link` and calls `done` once on the main thread, within 10 seconds, with whether the desktop
    /// took it.
    virtual void open(const QUrl &link, std::function<void(bool opened)> done) = 0;
};

} // namespace quorvane
