// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QObject>
#include <QVariantAnimation>

namespace quorvane {

/// Light or dark, and how much may move. The `Theme` of an engine's views follows the one that
/// `ComponentsModule::install` gave to the engine, else one of its own, which is dark and moves. Lives on the
/// main thread.
class Appearance final : public QObject
{
    Q_OBJECT
    Q_PROPERTY(bool dark READ isDark WRITE setDark NOTIFY darkChanged)
    Q_PROPERTY(bool reduceMotion READ reduceMotion WRITE setReduceMotion NOTIFY reduceMotionChanged)

public:
    explicit Appearance(QObject *parent = nullptr);

    [[nodiscard]] bool isDark() const { return m_dark; }
    /// How far the colours have gone from light (0) to dark (1).
    [[nodiscard]] double darkness() const { return m_darkness; }
    [[nodiscard]] bool reduceMotion() const { return m_reduceMotion; }

    /// The colours fade to the other ones, unless motion is reduced.
    void setDark(bool dark);
    /// The colours change at once. For what is known before anybody looks.
    void startDark(bool dark);
    void setReduceMotion(bool reduce);

Q_SIGNALS:
    void darkChanged();
    void darknessChanged();
    void reduceMotionChanged();

private:
    void setDarkness(double darkness);

    QVariantAnimation m_fade;
    double m_darkness = 1;
    bool m_dark = true;
    bool m_reduceMotion = false;
};

} // namespace quorvane
