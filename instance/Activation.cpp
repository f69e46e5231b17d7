// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "instance/Activation.h"

using namespace Qt::StringLiterals;

namespace quorvane {

namespace {

const QString tokenKey = u"activation-token"_s;
const QString startupKey = u"desktop-startup-id"_s;

} // namespace

Activation Activation::ofStart(const QStringList &arguments)
{
    return {
        .wish = arguments.contains(u"--preview-overlay"_s) ? Activation::Wish::windowAndSampleAlert
                                                           : Activation::Wish::window,
        .token = qEnvironmentVariable("XDG_ACTIVATION_TOKEN"),
        .startupId = qEnvironmentVariable("DESKTOP_STARTUP_ID"),
    };
}

Activation Activation::fromPlatformData(const QVariantMap &data)
{
    return {.token = data.value(tokenKey).toString(), .startupId = data.value(startupKey).toString()};
}

QVariantMap Activation::platformData() const
{
    QVariantMap data;
    if (!token.isEmpty())
        data.insert(tokenKey, token);
    if (!startupId.isEmpty())
        data.insert(startupKey, startupId);
    return data;
}

} // namespace quorvane
