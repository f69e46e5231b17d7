// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "ui/tray/linux/TrayPicture.h"

#include "ui/components/Appearance.h"

#include <QPainter>
#include <QPixmap>
#include <QSvgRenderer>

#include <algorithm>
#include <initializer_list>

/// Links the shapes in, which a static library's linking would leave out. Has to stand outside of all
/// namespaces.
static void addShapes()
{
    Q_INIT_RESOURCE(tray);
}

using namespace Qt::StringLiterals;

namespace quorvane {

namespace {

constexpr QRgb lightText = 0xfff2f2f2;
constexpr QRgb darkText = 0xff242424;

/// What panels ask for, in pixels.
constexpr std::initializer_list<int> sides{16, 22, 24, 32, 44, 48};

/// Others have a dark panel whatever else they show: it is part of GNOME's and Xfce's design, and what bars
/// of the tiling kind come with.
const QStringList desktopsWithPanelsLikeWindows{u"KDE"_s, u"MATE"_s, u"LXQt"_s, u"LXDE"_s};

/// Others show a symbolic icon in the colour that its file has.
const QStringList desktopsThatColorSymbols{u"KDE"_s,        u"GNOME"_s,  u"MATE"_s,  u"XFCE"_s,
                                           u"X-Cinnamon"_s, u"Budgie"_s, u"Unity"_s, u"Pantheon"_s};

bool isOneOf(const QStringList &desktops, const QString &currentDesktop)
{
    const QStringList current = currentDesktop.split(u':');
    return std::ranges::any_of(
        desktops, [&](const QString &name) { return current.contains(name, Qt::CaseInsensitive); });
}

QString nameOf(TrayState state)
{
    switch (state) {
    case TrayState::normal:
        return u"me.tarnel.Quorvane-symbolic"_s;
    case TrayState::paused:
        return u"me.tarnel.Quorvane-paused-symbolic"_s;
    case TrayState::attention:
        return u"me.tarnel.Quorvane-attention-symbolic"_s;
    }
    Q_UNREACHABLE();
}

} // namespace

TrayPicture::TrayPicture()
    : m_color(lightText)
{
}

TrayPicture::TrayPicture(const QString &currentDesktop, const Appearance &appearance)
    : m_color(isOneOf(desktopsWithPanelsLikeWindows, currentDesktop) && !appearance.isDark() ? darkText
                                                                                             : lightText)
    , m_panelColors(isOneOf(desktopsThatColorSymbols, currentDesktop))
{
}

QIcon TrayPicture::of(TrayState state, TrayKind kind) const
{
    const QString name = nameOf(state);
    if (kind == TrayKind::notifierItem && m_panelColors && QIcon::hasThemeIcon(name))
        return QIcon::fromTheme(name);
    addShapes();
    QIcon icon;
    for (const int side : sides)
        icon.addPixmap(drawn(name, side));
    return icon;
}

QPixmap TrayPicture::drawn(const QString &name, int side) const
{
    QSvgRenderer shape(u":/quorvane/tray/%1.svg"_s.arg(name));
    QPixmap picture(side, side);
    picture.fill(Qt::transparent);
    QPainter painter(&picture);
    shape.render(&painter);
    painter.setCompositionMode(QPainter::CompositionMode_SourceIn);
    painter.fillRect(picture.rect(), m_color);
    return picture;
}

} // namespace quorvane
