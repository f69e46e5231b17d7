// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "alert/linux/DesktopPlatform.h"

#include "alert/linux/FullScreenPlacement.h"
#include "alert/linux/LayerShell.h"
#include "alert/linux/LayerShellPlacement.h"
#include "alert/linux/ManagedPlacement.h"
#include "alert/linux/OverrideRedirectPlacement.h"
#include "alert/linux/SessionProbe.h"
#include "alert/linux/X11Server.h"

#include <QGuiApplication>
#include <QLoggingCategory>
#include <QQuickWindow>

namespace quorvane {

namespace {

SessionKind kindOf(const SessionProbe &probe)
{
    if (probe.hasWayland && probe.hasLayerShell)
        return SessionKind::layerShell;
    if (probe.hasWayland)
        return probe.hasX11 ? SessionKind::managedX11 : SessionKind::bareWayland;
    return probe.hasX11 ? SessionKind::x11 : SessionKind::none;
}

/// Qt's platform plugins in the order in which they are to be tried.
QByteArray pluginsFor(SessionKind kind)
{
    switch (kind) {
    case SessionKind::layerShell:
        return QByteArrayLiteral("wayland;xcb");
    case SessionKind::managedX11:
        return QByteArrayLiteral("xcb;wayland");
    case SessionKind::bareWayland:
        return QByteArrayLiteral("wayland");
    case SessionKind::x11:
        return QByteArrayLiteral("xcb");
    case SessionKind::none:
        break;
    }
    return {};
}

/// On Wayland Qt loads the graphics driver for any window, drawn with it or not: 50 MB for nothing. A name
/// that no integration has leaves it out, at the price of a warning that says nothing to the user.
void keepDriversOut()
{
    constexpr auto variable = "QT_WAYLAND_CLIENT_BUFFER_INTEGRATION";
    if (!qEnvironmentVariableIsEmpty(variable))
        return;
    qputenv(variable, QByteArrayLiteral("none"));
    QLoggingCategory::setFilterRules(QStringLiteral("qt.qpa.wayland.warning=false"));
}

} // namespace

SessionKind preparePlatform()
{
    const SessionKind kind = kindOf(SessionProbe::run());
    const QByteArray plugins = pluginsFor(kind);
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM") && !plugins.isEmpty())
        qputenv("QT_QPA_PLATFORM", plugins);
    // Lets windows with the bypass flag stay without a role, so that the layer-shell role can be given to
    // them.
    qputenv("QT_WAYLAND_USE_BYPASSWINDOWMANAGERHINT", QByteArrayLiteral("1"));
    // No graphics driver may stand between a meeting and its user, and the first frame comes sooner without
    // one.
    if (qEnvironmentVariableIsEmpty("QT_QUICK_BACKEND")) {
        QQuickWindow::setSceneGraphBackend(QStringLiteral("software"));
        keepDriversOut();
    }
    return kind;
}

std::unique_ptr<PanelPlacement> choosePlacement()
{
    const QString platform = QGuiApplication::platformName();
    if (platform.startsWith(QLatin1StringView("wayland"))) {
        if (std::unique_ptr<LayerShell> shell = LayerShell::bind())
            return std::make_unique<LayerShellPlacement>(std::move(shell));
        return std::make_unique<FullScreenPlacement>();
    }
    if (std::optional<X11Server> server = X11Server::current()) {
        if (server->isXwayland())
            return std::make_unique<ManagedPlacement>(*server);
        return std::make_unique<OverrideRedirectPlacement>(*server);
    }
    return std::make_unique<FullScreenPlacement>();
}

} // namespace quorvane
