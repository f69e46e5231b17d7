// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "instance/linux/WindowActivation.h"

#include <QGuiApplication>
#include <QRegularExpression>
#include <QScreen>

#include <qpa/qplatformnativeinterface.h>

using namespace Qt::StringLiterals;

namespace quorvane {

namespace {

constexpr const char *tokenVariable = "XDG_ACTIVATION_TOKEN";

using SetTime = void (*)(QScreen *screen, quint32 time);

/// The server's time of what the person did, in milliseconds, as the startup id ends with it (Startup
/// Notification Protocol 0.1, "_TIME"); 0 when it does not.
quint32 timeOf(const QString &startupId)
{
    static const QRegularExpression ending(QStringLiteral("_TIME(\\d+)$"));
    return ending.match(startupId).captured(1).toUInt();
}

void setUserTime(quint32 time)
{
    QPlatformNativeInterface *native = QGuiApplication::platformNativeInterface();
    for (const char *setter : {"setapptime", "setappusertime"}) {
        const auto function =
            reinterpret_cast<QFunctionPointer>(native->nativeResourceFunctionForScreen(setter));
        if (const auto set = reinterpret_cast<SetTime>(function))
            set(QGuiApplication::primaryScreen(), time);
    }
}

} // namespace

// Qt takes a token from the environment when a window asks to be activated, and from nowhere else.
WindowActivation::WindowActivation(const Activation &activation)
{
    if (!activation.token.isEmpty())
        qputenv(tokenVariable, activation.token.toUtf8());
    if (QGuiApplication::platformName() != "xcb"_L1)
        return;
    if (const quint32 time = timeOf(activation.startupId); time != 0)
        setUserTime(time);
}

// One that no window has asked for is not for another window later.
WindowActivation::~WindowActivation()
{
    qunsetenv(tokenVariable);
}

} // namespace quorvane
