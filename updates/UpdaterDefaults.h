// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "core/Result.h"
#include "core/Switch.h"

#include <QByteArray>

#include <optional>

namespace quorvane {

/// What the updater keeps from one run of the program to the next. Every question gives what holds now; what
/// is set is kept when the call returns, or the call fails and nothing has changed. Main thread only.
class UpdaterDefaults
{
public:
    UpdaterDefaults() = default;
    virtual ~UpdaterDefaults() = default;
    Q_DISABLE_COPY_MOVE(UpdaterDefaults)

    /// Whether newer versions are looked for by themselves.
    [[nodiscard]] virtual bool automaticallyChecksForUpdates() const = 0;
    virtual Result<void> setAutomaticallyChecksForUpdates(Switch enabled) = 0;
    /// Whether they are then fetched and installed by themselves.
    [[nodiscard]] virtual bool automaticallyDownloadsUpdates() const = 0;
    virtual Result<void> setAutomaticallyDownloadsUpdates(Switch enabled) = 0;
    /// When the feed was last read, Unix time in seconds; absent when it never was.
    [[nodiscard]] virtual std::optional<double> lastCheck() const = 0;
    virtual Result<void> setLastCheck(double time) = 0;
    /// What was fetched last and turned out to be nothing that can be installed, by its signature; empty when
    /// there was no such thing.
    [[nodiscard]] virtual QByteArray refusedSignature() const = 0;
    virtual Result<void> setRefusedSignature(const QByteArray &signature) = 0;
};

} // namespace quorvane
