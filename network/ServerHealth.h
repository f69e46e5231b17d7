// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "core/Result.h"

#include <QJsonObject>
#include <QMap>
#include <QString>

#include <optional>

namespace quorvane {

/// What the user's own server says of itself.
struct ServerHealth
{
    /// It holds credentials of the phone service.
    bool configured = false;
    /// A short state by calendar source; "ok" for one that works.
    QMap<QString, QString> sources;
    /// Age of the last schedule that was uploaded, in seconds; absent when there is none.
    std::optional<double> snapshotAge;
    /// "ok" when messages reach the phone.
    QString delivery;
    /// Its scheduler runs.
    bool scheduler = false;
    /// Number of calendar sources that it reads by itself.
    qint64 directSources = 0;

    bool operator==(const ServerHealth &) const = default;

    /// Fails with `JsonError` when a key other than "snapshotAge" is missing or a value has the wrong type.
    [[nodiscard]] static Result<ServerHealth> fromJson(const QJsonObject &object);
};

} // namespace quorvane
