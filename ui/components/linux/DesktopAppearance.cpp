// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "ui/components/linux/DesktopAppearance.h"

#include "ui/components/Appearance.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusMetaType>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>
#include <QEvent>
#include <QGuiApplication>
#include <QPalette>

namespace quorvane {

namespace {

using PortalSettings = QMap<QString, QVariantMap>;

const QString portalService = QStringLiteral("org.freedesktop.portal.Desktop");
const QString portalPath = QStringLiteral("/org/freedesktop/portal/desktop");
const QString portalInterface = QStringLiteral("org.freedesktop.portal.Settings");
const QString commonSpace = QStringLiteral("org.freedesktop.appearance");
const QString schemeKey = QStringLiteral("color-scheme");

constexpr int answerMilliseconds = 5000;

bool isPaletteDark()
{
    const QPalette palette = QGuiApplication::palette();
    return palette.color(QPalette::Text).lightnessF() > palette.color(QPalette::Base).lightnessF();
}

} // namespace

DesktopAppearance::DesktopAppearance(Appearance &appearance, QObject *parent)
    : QObject(parent)
    , m_appearance(appearance)
{
    m_appearance.startDark(isDark());
    qApp->installEventFilter(this);
    // By its name, or else the slot below is taken for none that a signal can be connected to.
    qRegisterMetaType<QDBusVariant>();
    qDBusRegisterMetaType<PortalSettings>();
    QDBusConnection::sessionBus().connect(portalService, portalPath, portalInterface,
                                          QStringLiteral("SettingChanged"), this,
                                          SLOT(onSettingChanged(QString, QString, QDBusVariant)));
    askPortal();
}

bool DesktopAppearance::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() == QEvent::ApplicationPaletteChange && watched == qApp)
        m_appearance.setDark(isDark());
    return QObject::eventFilter(watched, event);
}

void DesktopAppearance::askPortal()
{
    QDBusMessage question =
        QDBusMessage::createMethodCall(portalService, portalPath, portalInterface, QStringLiteral("ReadAll"));
    question << QStringList{commonSpace};
    auto *watcher = new QDBusPendingCallWatcher(
        QDBusConnection::sessionBus().asyncCall(question, answerMilliseconds), this);
    connect(watcher, &QDBusPendingCallWatcher::finished, this, [this, watcher] {
        const QDBusPendingReply<PortalSettings> reply = *watcher;
        watcher->deleteLater();
        if (!reply.isValid())
            return;
        note(reply.value().value(commonSpace).value(schemeKey));
        m_appearance.startDark(isDark());
    });
}

void DesktopAppearance::onSettingChanged(const QString &space, const QString &key, const QDBusVariant &value)
{
    if (space != commonSpace || key != schemeKey)
        return;
    note(value.variant());
    m_appearance.setDark(isDark());
}

void DesktopAppearance::note(const QVariant &scheme)
{
    constexpr uint dark = 1;
    constexpr uint light = 2;
    const uint number = scheme.toUInt();
    m_prefersDark = number == dark || number == light ? std::optional(number == dark) : std::nullopt;
}

bool DesktopAppearance::isDark() const
{
    return m_prefersDark.value_or(isPaletteDark());
}

} // namespace quorvane
