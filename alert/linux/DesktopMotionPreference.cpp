// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "alert/linux/DesktopMotionPreference.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusMetaType>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>
#include <QSettings>
#include <QStandardPaths>

namespace quorvane {

namespace {

using PortalSettings = QMap<QString, QVariantMap>;

const QString portalService = QStringLiteral("org.freedesktop.portal.Desktop");
const QString portalPath = QStringLiteral("/org/freedesktop/portal/desktop");
const QString portalInterface = QStringLiteral("org.freedesktop.portal.Settings");

const QString gnomeSpace = QStringLiteral("org.gnome.desktop.interface");
const QString gnomeKey = QStringLiteral("enable-animations");
const QString commonSpace = QStringLiteral("org.freedesktop.appearance");
const QString commonKey = QStringLiteral("reduced-motion");
const QString kdeSpace = QStringLiteral("org.kde.kdeglobals.KDE");
const QString kdeKey = QStringLiteral("AnimationDurationFactor");

/// KDE's factor as its settings store it, a number as text; 0 means no animations.
bool isZero(const QVariant &value)
{
    bool isNumber = false;
    const double factor = value.toString().toDouble(&isNumber);
    return isNumber && factor <= 0;
}

} // namespace

DesktopMotionPreference::DesktopMotionPreference(QObject *parent)
    : MotionPreference(parent)
{
    const QString kdeFile = QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation) +
                            QStringLiteral("/kdeglobals");
    note(kdeSpace, kdeKey, QSettings(kdeFile, QSettings::IniFormat).value(QStringLiteral("KDE/") + kdeKey));
    // By its name, or else the slot below is taken for none that a signal can be connected to.
    qRegisterMetaType<QDBusVariant>();
    qDBusRegisterMetaType<PortalSettings>();
    QDBusConnection::sessionBus().connect(portalService, portalPath, portalInterface,
                                          QStringLiteral("SettingChanged"), this,
                                          SLOT(onSettingChanged(QString, QString, QDBusVariant)));
    askPortal();
}

void DesktopMotionPreference::askPortal()
{
    QDBusMessage question =
        QDBusMessage::createMethodCall(portalService, portalPath, portalInterface, QStringLiteral("ReadAll"));
    question << QStringList{gnomeSpace, commonSpace, kdeSpace};
    auto *watcher = new QDBusPendingCallWatcher(QDBusConnection::sessionBus().asyncCall(question), this);
    connect(watcher, &QDBusPendingCallWatcher::finished, this, [this, watcher] {
        const QDBusPendingReply<PortalSettings> reply = *watcher;
        watcher->deleteLater();
        if (!reply.isValid())
            return;
        const PortalSettings settings = reply.value();
        for (auto space = settings.cbegin(); space != settings.cend(); ++space) {
            for (auto key = space->cbegin(); key != space->cend(); ++key)
                note(space.key(), key.key(), key.value());
        }
    });
}

void DesktopMotionPreference::onSettingChanged(const QString &space, const QString &key,
                                               const QDBusVariant &value)
{
    note(space, key, value.variant());
}

void DesktopMotionPreference::note(const QString &space, const QString &key, const QVariant &value)
{
    const QString setting = space + u' ' + key;
    if (space == gnomeSpace && key == gnomeKey)
        m_votes[setting] = !value.toBool();
    else if (space == commonSpace && key == commonKey)
        m_votes[setting] = value.toUInt() == 1;
    else if (space == kdeSpace && key == kdeKey)
        m_votes[setting] = isZero(value);
    update();
}

void DesktopMotionPreference::update()
{
    const bool reduceMotion = m_votes.values().contains(true);
    if (reduceMotion == m_reduceMotion)
        return;
    m_reduceMotion = reduceMotion;
    Q_EMIT changed();
}

} // namespace quorvane
