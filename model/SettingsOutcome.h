// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "model/NoticeKind.h"

#include <QString>

namespace quorvane {

/// How something that was asked for in the settings ended, in words. They never hold foreign text.
struct SettingsOutcome
{
    NoticeKind kind = NoticeKind::success;
    QString text;

    bool operator==(const SettingsOutcome &) const = default;
};

} // namespace quorvane
