// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "instance/Activation.h"

#include <QDBusContext>
#include <QObject>

namespace quorvane {

/// What a desktop may call (Desktop Entry Specification 1.5, D-Bus activation). Nothing here opens files and
/// no further actions are declared, so `Open` shows the program, and `ActivateAction` knows what another copy
/// asks for.
class ApplicationInterface final : public QObject, protected QDBusContext
{
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.freedesktop.Application")

public:
    using QObject::QObject;

    /// The action by which a wish is called; empty for the one that is `Activate`.
    [[nodiscard]] static QString actionFor(Activation::Wish wish);

public Q_SLOTS:
    void Activate(const QVariantMap &platformData);
    void Open(const QStringList &uris, const QVariantMap &platformData);
    void ActivateAction(const QString &action, const QVariantList &parameter,
                        const QVariantMap &platformData);

Q_SIGNALS:
    void activated(const quorvane::Activation &activation);
};

} // namespace quorvane
