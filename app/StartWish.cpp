// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "app/StartWish.h"

#include "launch/linux/StartKind.h"

namespace quorvane {

Activation activationOfStart(const QStringList &arguments)
{
    Activation activation = Activation::ofStart(arguments);
    if (startKind() != StartKind::person)
        activation.wish = Activation::Wish::nothing;
    return activation;
}

} // namespace quorvane
