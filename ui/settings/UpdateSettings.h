// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "core/Switch.h"

#include <QObject>
#include <QString>
#include <QtQml/qqmlregistration.h>

namespace quorvane {

/// The part of keeping this program current that the person can see and change. Whoever makes one owns it; it
/// is called on the main thread only, and answers at once.
class UpdateSettings : public QObject
{
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("Belongs to what updates this program")
    Q_PROPERTY(QString version READ version CONSTANT)
    Q_PROPERTY(bool updatesItself READ updatesItself CONSTANT)
    Q_PROPERTY(bool automaticallyChecks READ automaticallyChecks WRITE chooseChecks NOTIFY changed)
    Q_PROPERTY(bool automaticallyDownloads READ automaticallyDownloads WRITE chooseDownloads NOTIFY changed)
    Q_PROPERTY(bool canCheckForUpdates READ canCheckForUpdates NOTIFY changed)
    Q_PROPERTY(QString keeper READ keeper CONSTANT)
    Q_PROPERTY(Phase phase READ phase NOTIFY progressed)
    Q_PROPERTY(QString headline READ headline NOTIFY progressed)
    Q_PROPERTY(QString notes READ notes NOTIFY progressed)
    Q_PROPERTY(double progress READ progress NOTIFY progressed)

public:
    /// How far an update is.
    enum class Phase {
        /// Nothing to tell.
        idle,
        checking,
        upToDate,
        /// There is a newer version, which the person may have installed by `install`.
        available,
        /// It is being fetched, as far as `progress` says; `stop` ends that.
        downloading,
        /// It is being checked and unpacked.
        preparing,
        /// It is ready, and waits for the meeting, or for a moment.
        waiting,
        /// This copy has just been put in place of an older one.
        installed,
        failed,
    };
    Q_ENUM(Phase)

    using QObject::QObject;

    /// The installed version, as "Version 1.4.0 (812)".
    [[nodiscard]] virtual QString version() const = 0;
    /// Whether this copy can update itself at all; where it cannot, nothing below does anything.
    [[nodiscard]] virtual bool updatesItself() const = 0;
    [[nodiscard]] virtual bool automaticallyChecks() const = 0;
    virtual void setAutomaticallyChecks(Switch checks) = 0;
    [[nodiscard]] virtual bool automaticallyDownloads() const = 0;
    virtual void setAutomaticallyDownloads(Switch downloads) = 0;
    /// False while a check runs.
    [[nodiscard]] virtual bool canCheckForUpdates() const = 0;
    /// Looks for an update because the person asked for it.
    Q_INVOKABLE virtual void checkNow() = 0;

    /// Who keeps this copy current where it does not update itself, as one sentence; empty where it does.
    [[nodiscard]] virtual QString keeper() const = 0;
    [[nodiscard]] virtual Phase phase() const = 0;
    /// What there is to tell of the phase, as one sentence; empty when idle.
    [[nodiscard]] virtual QString headline() const = 0;
    /// What is new in the version at hand, as plain text; may be empty.
    [[nodiscard]] virtual QString notes() const = 0;
    /// From 0 to 1, while downloading.
    [[nodiscard]] virtual double progress() const = 0;
    /// Fetches and installs the version that is available, or tries again what failed.
    Q_INVOKABLE virtual void install() = 0;
    /// Ends the download; what has come is kept for later.
    Q_INVOKABLE virtual void stop() = 0;

    void chooseChecks(bool checks) { setAutomaticallyChecks(checks ? Switch::on : Switch::off); }
    void chooseDownloads(bool downloads) { setAutomaticallyDownloads(downloads ? Switch::on : Switch::off); }

Q_SIGNALS:
    void changed();
    /// Phase, headline, notes or progress.
    void progressed();
};

} // namespace quorvane
