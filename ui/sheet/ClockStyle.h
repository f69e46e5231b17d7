// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QLocale>
#include <QTime>

namespace quorvane {

/// How a locale tells the time: over 24 hours, or over twice 12.
struct ClockStyle
{
    enum class Hours { twelve, twentyFour };

    explicit ClockStyle(const QLocale &locale);

    Hours hours;
    /// The words for the halves of the day.
    QString morning;
    QString afternoon;

    [[nodiscard]] QString hourText(QTime time) const;
    [[nodiscard]] QString minuteText(QTime time) const;
    [[nodiscard]] const QString &halfText(QTime time) const;

private:
    QLocale m_locale;
};

} // namespace quorvane
