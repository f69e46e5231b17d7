// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "app/PreviewUpdates.h"
#include "model/PreviewContent.h"
#include "ui/dashboard/Dashboard.h"

#include <QSize>
#include <QString>

#include <vector>

/// What the preview pictures show: made-up meetings of a made-up day.
namespace quorvane::PreviewScenes {

/// One moment of the dashboard.
struct WindowScene
{
    enum class Theme { light, dark };
    enum class Sheet {
        closed,
        /// As it opens.
        empty,
        filled,
        /// With a link that cannot be joined.
        refused,
    };

    /// The picture's file name without its ending.
    QString name;
    Theme theme;
    PreviewContent content;
    Dashboard::Section section = Dashboard::Section::agenda;
    Sheet sheet = Sheet::closed;
    QSize size{1100, 780};
    PreviewUpdates::Moment updates{};
};

/// One moment of the alert.
struct AlertScene
{
    enum class Focus { hidden, shown };

    QString name;
    QString title;
    /// Seconds until the start; negative once it has started.
    double secondsLeft = 45;
    bool hasLink = true;
    Focus focus = Focus::hidden;
    QSize size{1920, 1080};
};

/// When all of it takes place (Unix time, seconds).
[[nodiscard]] double moment();

[[nodiscard]] std::vector<WindowScene> window();
[[nodiscard]] std::vector<AlertScene> alert();

} // namespace quorvane::PreviewScenes
