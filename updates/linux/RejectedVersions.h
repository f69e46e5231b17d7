// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "core/Result.h"
#include "updates/Handover.h"

#include <QString>
#include <QStringList>

#include <optional>

namespace quorvane {

class DurableFolder;

/// Versions that were put in place once and did not come up, the latest last; at most 20 are remembered.
struct RejectedVersions
{
    QStringList versions;
    /// The one of which the person has not been told.
    std::optional<QString> untold;
    /// What the copy before that one had wished to be taken up.
    std::optional<Handover> handover;

    bool operator==(const RejectedVersions &) const = default;

    /// As ROOT/rejected.json says; none when it is missing or damaged.
    [[nodiscard]] static RejectedVersions read(const DurableFolder &root);
    /// Fails with the system's error.
    [[nodiscard]] Result<void> write(const DurableFolder &root) const;

    void add(const QString &version, const Handover &wishes);
};

} // namespace quorvane
