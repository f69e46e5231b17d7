// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "core/Result.h"

#include <QHash>
#include <QJsonObject>
#include <QString>

#include <optional>

namespace quorvane {

/// What has become of one meeting's alert. Times are Unix time in seconds; 0 means none.
struct AlertRecord
{
    /// The user has answered, here or on the phone: no further alert of any kind.
    bool acknowledged = false;
    /// The screen alert stays away until this time.
    double snoozedUntil = 0;
    /// When the screen alert was last shown.
    double shownAt = 0;
    /// This machine has sent its phone alert.
    bool phoneSent = false;
    /// Token of the phone service for polling and cancelling an emergency message.
    std::optional<QString> receipt;

    bool operator==(const AlertRecord &) const = default;

    [[nodiscard]] QJsonObject toJson() const;
    /// Every key but "receipt" is required; fails with `JsonError`.
    [[nodiscard]] static Result<AlertRecord> fromJson(const QJsonObject &object);
};

/// Alert records by meeting id; a meeting without an entry has the default record.
using AlertRecords = QHash<QString, AlertRecord>;

} // namespace quorvane
