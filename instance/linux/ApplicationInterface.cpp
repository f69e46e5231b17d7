// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "instance/linux/ApplicationInterface.h"

using namespace Qt::StringLiterals;

namespace quorvane {

QString ApplicationInterface::actionFor(Activation::Wish wish)
{
    switch (wish) {
    case Activation::Wish::nothing:
        return u"check"_s;
    case Activation::Wish::window:
        return {};
    case Activation::Wish::windowAndSampleAlert:
        return u"preview-overlay"_s;
    }
    Q_UNREACHABLE();
}

void ApplicationInterface::Activate(const QVariantMap &platformData)
{
    Q_EMIT activated(Activation::fromPlatformData(platformData));
}

void ApplicationInterface::Open(const QStringList &uris, const QVariantMap &platformData)
{
    Q_UNUSED(uris)
    Activate(platformData);
}

void ApplicationInterface::ActivateAction(const QString &action, const QVariantList &parameter,
                                          const QVariantMap &platformData)
{
    Q_UNUSED(parameter)
    Activation activation = Activation::fromPlatformData(platformData);
    for (const auto wish : {Activation::Wish::nothing, Activation::Wish::windowAndSampleAlert}) {
        if (action != actionFor(wish))
            continue;
        activation.wish = wish;
        Q_EMIT activated(activation);
        return;
    }
    sendErrorReply(QDBusError::InvalidArgs, u"Quorvane has no such action."_s);
}

} // namespace quorvane
