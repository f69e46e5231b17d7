// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "core/Meeting.h"

#include <QString>

#include <vector>

namespace quorvane {

/// The hand-added meetings as one text: a JSON array (RFC 8259) of meetings.
struct ManualMeetingText
{
    std::vector<Meeting> meetings;
    /// Whether `meetings` is all that the text holds. What cannot be understood costs only itself.
    bool isWhole = true;

    /// An empty text holds no meetings.
    [[nodiscard]] static ManualMeetingText of(const QString &text);
    [[nodiscard]] static QString text(const std::vector<Meeting> &meetings);
};

} // namespace quorvane
