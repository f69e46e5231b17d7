// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "network/linux/KeyringSecret.h"

#include <QDBusMetaType>
#include <QDBusVariant>

namespace quorvane {

void KeyringSecret::registerTypes()
{
    // A prompt answers with one, and a slot that takes it cannot be connected before.
    qRegisterMetaType<QDBusVariant>();
    qDBusRegisterMetaType<KeyringSecret>();
    qDBusRegisterMetaType<KeyringAttributes>();
}

QDBusArgument &operator<<(QDBusArgument &argument, const KeyringSecret &secret)
{
    argument.beginStructure();
    argument << secret.session << secret.parameters << secret.value << secret.contentType;
    argument.endStructure();
    return argument;
}

const QDBusArgument &operator>>(const QDBusArgument &argument, KeyringSecret &secret)
{
    argument.beginStructure();
    const QDBusArgument &rest =
        argument >> secret.session >> secret.parameters >> secret.value >> secret.contentType;
    rest.endStructure();
    return rest;
}

} // namespace quorvane
