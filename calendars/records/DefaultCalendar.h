// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QString>

namespace quorvane {

/// The calendar that new events are meant for.
struct DefaultCalendar
{
    /// As people see it.
    QString title;
    /// Whether it is switched on and takes events.
    bool isWritable = false;

    bool operator==(const DefaultCalendar &) const = default;
};

} // namespace quorvane
