// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "ui/components/Theme.h"

#include "ui/components/Appearance.h"
#include "ui/components/ComponentsModule.h"

#include <QFont>
#include <QFontDatabase>
#include <QQmlEngine>

#include <array>

namespace quorvane {

namespace {

const QString wantedClockFace = QStringLiteral("National Park");

bool hasClockFace()
{
    static const bool has = QFontDatabase::hasFamily(wantedClockFace);
    return has;
}

constexpr std::array<QRgb, 7> dotsByTurn{0xff6fa8dc, 0xff5fb8a6, 0xffb58ce0, 0xff8fbf7f,
                                         0xffe27d8d, 0xffe0b94f, 0xff7fb3a6};

} // namespace

Theme::Theme(Appearance &appearance)
    : m_appearance(appearance)
{
    connect(&appearance, &Appearance::darknessChanged, this, &Theme::colorsChanged);
    connect(&appearance, &Appearance::darkChanged, this, &Theme::darkChanged);
    connect(&appearance, &Appearance::reduceMotionChanged, this, &Theme::reduceMotionChanged);
}

Theme *Theme::create(QQmlEngine *engine, QJSEngine *)
{
    if (Appearance *installed = ComponentsModule::installedAppearance(*engine))
        return new Theme(*installed);
    return new Theme(*new Appearance(engine));
}

bool Theme::isDark() const
{
    return m_appearance.isDark();
}

bool Theme::reduceMotion() const
{
    return m_appearance.reduceMotion();
}

QString Theme::textFace()
{
    return QStringLiteral("Manrope");
}

QString Theme::clockFace()
{
    return hasClockFace() ? wantedClockFace : textFace();
}

int Theme::clockWeight()
{
    // The clock face must be asked for at its heaviest, or its outlined style may be chosen.
    return hasClockFace() ? QFont::Black : QFont::ExtraBold;
}

QColor Theme::mixed(const QColor &from, const QColor &to, double share)
{
    const auto between = [share](float a, float b) { return a + (b - a) * static_cast<float>(share); };
    return QColor::fromRgbF(between(from.redF(), to.redF()), between(from.greenF(), to.greenF()),
                            between(from.blueF(), to.blueF()), between(from.alphaF(), to.alphaF()));
}

QColor Theme::faded(const QColor &base, double opacity)
{
    QColor color = base;
    color.setAlphaF(static_cast<float>(opacity));
    return color;
}

QColor Theme::dot(const QString &colorText, int index)
{
    const QColor own(colorText);
    return own.isValid() ? own : QColor(dotsByTurn[static_cast<size_t>(index) % dotsByTurn.size()]);
}

QColor Theme::tone(QRgb inDark, QRgb inLight) const
{
    return mixed(QColor::fromRgba(inLight), QColor::fromRgba(inDark), m_appearance.darkness());
}

} // namespace quorvane
