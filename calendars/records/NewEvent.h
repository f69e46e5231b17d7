// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QString>

namespace quorvane {

/// An event that is about to be put into a calendar; nobody is invited to it.
struct NewEvent
{
    /// RFC 5545 3.8.4.7, unique in the world.
    QString uid;
    QString title;
    QString notes;
    /// Unix time, whole seconds.
    double start = 0;
    double end = 0;
    /// How long before the start the calendar's own alarm is due, in whole seconds.
    double alarmLead = 0;
    /// Unix time, seconds: when it was thought of.
    double created = 0;

    bool operator==(const NewEvent &) const = default;
};

} // namespace quorvane
