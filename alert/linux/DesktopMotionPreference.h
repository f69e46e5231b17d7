// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "alert/MotionPreference.h"

#include <QDBusVariant>
#include <QMap>
#include <QVariantMap>

namespace quorvane {

/// The wish for reduced motion as the desktop portal's settings tell it: GNOME's switch for animations, KDE's
/// speed of animations, and the cross-desktop key. Follows changes. Without a portal, KDE's own file is read
/// once.
class DesktopMotionPreference final : public MotionPreference
{
    Q_OBJECT

public:
    explicit DesktopMotionPreference(QObject *parent = nullptr);

    [[nodiscard]] bool reduceMotion() const override { return m_reduceMotion; }

private:
    Q_SLOT void onSettingChanged(const QString &space, const QString &key, const QDBusVariant &value);
    void askPortal();
    void note(const QString &space, const QString &key, const QVariant &value);
    void update();

    /// Which settings speak for reduced motion, by "namespace key".
    QMap<QString, bool> m_votes;
    bool m_reduceMotion = false;
};

} // namespace quorvane
