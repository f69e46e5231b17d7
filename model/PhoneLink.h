// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QHash>
#include <QSet>
#include <QString>

namespace quorvane {

/// What this machine has under way with the phone service. Times are Unix time in seconds.
struct PhoneLink
{
    /// Meetings with a message on its way, and the time before which a failed one is not repeated.
    QSet<QString> busy;
    QHash<QString, double> retryAfter;
    /// The last round of questions about receipts, and the receipts that cannot change any more.
    double receiptAt = 0;
    QSet<QString> spentReceipts;
    bool isPolling = false;
};

} // namespace quorvane
