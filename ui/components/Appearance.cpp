// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "ui/components/Appearance.h"

namespace quorvane {

namespace {

constexpr int fadeMilliseconds = 400;

} // namespace

Appearance::Appearance(QObject *parent)
    : QObject(parent)
{
    m_fade.setDuration(fadeMilliseconds);
    connect(&m_fade, &QVariantAnimation::valueChanged, this,
            [this](const QVariant &value) { setDarkness(value.toDouble()); });
}

void Appearance::setDark(bool dark)
{
    if (dark == m_dark)
        return;
    m_dark = dark;
    m_fade.stop();
    if (m_reduceMotion) {
        setDarkness(dark ? 1 : 0);
    } else {
        m_fade.setStartValue(m_darkness);
        m_fade.setEndValue(dark ? 1.0 : 0.0);
        m_fade.start();
    }
    Q_EMIT darkChanged();
}

void Appearance::startDark(bool dark)
{
    setDark(dark);
    m_fade.stop();
    setDarkness(dark ? 1 : 0);
}

void Appearance::setReduceMotion(bool reduce)
{
    if (reduce == m_reduceMotion)
        return;
    m_reduceMotion = reduce;
    Q_EMIT reduceMotionChanged();
}

void Appearance::setDarkness(double darkness)
{
    if (qFuzzyCompare(1 + darkness, 1 + m_darkness))
        return;
    m_darkness = darkness;
    Q_EMIT darknessChanged();
}

} // namespace quorvane
