// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "core/Meeting.h"

#include <QSet>
#include <QString>

#include <vector>

namespace quorvane {

/// What is known of the user's own server. Times are Unix time in seconds.
struct ServerLink
{
    bool isAddressStored = false;
    /// It has an address and, as far as the keyring tells, a token.
    bool isConfigured = false;
    /// It holds what is scheduled here.
    bool isSynced = false;
    /// Failed exchanges in a row.
    int failures = 0;
    /// The schedule last confirmed by it, and what it listed as answered.
    std::vector<Meeting> meetings;
    QSet<QString> acknowledged;
    /// The revision of the schedule that it took.
    int syncedRevision = -1;
    /// When, and at which revision, it was last in order.
    double judgedAt = 0;
    int judgedRevision = -1;
};

} // namespace quorvane
