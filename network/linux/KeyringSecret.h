// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QByteArray>
#include <QDBusArgument>
#include <QDBusObjectPath>
#include <QMap>
#include <QString>

namespace quorvane {

/// By what an item is found.
using KeyringAttributes = QMap<QString, QString>;

/// A value on its way over the bus, as the service wants it.
struct KeyringSecret
{
    QDBusObjectPath session;
    /// For encrypted sessions; ours is none.
    QByteArray parameters;
    QByteArray value;
    QString contentType;

    /// How the bus calls its type.
    static constexpr auto signature = "(oayays)";
    /// Makes this type and the attributes known to Qt; to be called before one of them is sent.
    static void registerTypes();
};

QDBusArgument &operator<<(QDBusArgument &argument, const KeyringSecret &secret);
const QDBusArgument &operator>>(const QDBusArgument &argument, KeyringSecret &secret);

} // namespace quorvane

Q_DECLARE_METATYPE(quorvane::KeyringSecret)
