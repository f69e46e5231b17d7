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
    Q_PROPERTY(bool canDownloadAutomatically READ canDownloadAutomatically NOTIFY changed)
    Q_PROPERTY(bool canCheckForUpdates READ canCheckForUpdates NOTIFY changed)

public:
    using QObject::QObject;

    /// The installed version, as "Version 1.4.0 (812)".
    [[nodiscard]] virtual QString version() const = 0;
    /// Whether this copy can update itself at all; where it cannot, nothing below does anything.
    [[nodiscard]] virtual bool updatesItself() const = 0;
    [[nodiscard]] virtual bool automaticallyChecks() const = 0;
    virtual void setAutomaticallyChecks(Switch checks) = 0;
    [[nodiscard]] virtual bool automaticallyDownloads() const = 0;
    virtual void setAutomaticallyDownloads(Switch downloads) = 0;
    [[nodiscard]] virtual bool canDownloadAutomatically() const = 0;
    /// False while a check runs.
    [[nodiscard]] virtual bool canCheckForUpdates() const = 0;
    /// Looks for an update because the person asked for it.
    Q_INVOKABLE virtual void checkNow() = 0;

    void chooseChecks(bool checks) { setAutomaticallyChecks(checks ? Switch::on : Switch::off); }
    void chooseDownloads(bool downloads) { setAutomaticallyDownloads(downloads ? Switch::on : Switch::off); }

Q_SIGNALS:
    void changed();
};

} // namespace quorvane
