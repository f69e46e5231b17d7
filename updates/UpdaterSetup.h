// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "network/ServerTrust.h"
#include "updates/CheckTimer.h"
#include "updates/Handover.h"

#include <QRandomGenerator>
#include <QString>
#include <QUrl>

#include <chrono>
#include <functional>

namespace quorvane {

class UpdateInstaller;
class UpdaterDefaults;

/// What an `Updater` is made of, fixed for its life. All that is referred to must outlive it.
struct UpdaterSetup
{
    /// The feed's address.
    QUrl feed;
    /// The build's number.
    QString installedVersion;
    UpdateInstaller &installer;
    UpdaterDefaults &defaults;
    ServerTrust trust;
    /// What the copy that takes over from this one is told.
    std::function<Handover()> handover;
    /// Unix time in seconds.
    std::function<double()> now;
    /// A number below its argument.
    std::function<quint32(quint32)> random = [](quint32 bound) {
        return QRandomGenerator::global()->bounded(bound);
    };
    /// How often the clock is looked at.
    std::chrono::milliseconds look = CheckTimer::usualLook;
    /// How often it is looked whether a check that was refused may be made.
    std::chrono::milliseconds refusalLook = std::chrono::seconds(15);
};

} // namespace quorvane
