// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "core/Result.h"
#include "updates/Handover.h"

#include <QByteArray>
#include <QJsonObject>
#include <QString>

namespace quorvane {

/// Which version was put in place of which, and is on trial.
struct TrialRecord
{
    /// Where it stands below ROOT, as JSON.
    static constexpr const char *file = "trial.json";

    QString version;
    QString previous;
    /// What the copy of the previous version wished to be taken up.
    Handover handover;

    bool operator==(const TrialRecord &) const = default;

    [[nodiscard]] QByteArray toJson() const;
    /// Fails with `JsonError`, also when something is no version.
    [[nodiscard]] static Result<TrialRecord> fromJson(const QByteArray &bytes);
};

[[nodiscard]] QJsonObject handoverToJson(const Handover &handover);
[[nodiscard]] Result<Handover> handoverFromJson(const QJsonObject &object);

} // namespace quorvane
