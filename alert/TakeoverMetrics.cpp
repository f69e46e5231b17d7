// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "alert/TakeoverMetrics.h"

#include <QFont>

#include <algorithm>
#include <array>
#include <cmath>

namespace quorvane {

namespace {

/// Natural line height of the interface's type face, in type sizes.
constexpr qreal naturalLine = 1.366;
constexpr qreal sideMargin = 49;
/// What the side margin may take of a narrow window.
constexpr qreal largestSideShare = 0.07;
constexpr qreal narrowestRowOfActions = 780;

enum class Step { compact, regular, large };

Step stepOf(qreal height)
{
    if (height < 760)
        return Step::compact;
    return height < 1600 ? Step::regular : Step::large;
}

struct TitleStyle
{
    qsizetype longest;
    std::array<int, 3> font;
    int weight;
    qreal tracking;
    qreal lineFactor;
};

const TitleStyle &titleStyle(qsizetype length)
{
    static constexpr std::array<TitleStyle, 4> styles{{
        {60, {32, 52, 76}, QFont::ExtraBold, -0.02, 0.90},
        {120, {26, 38, 56}, QFont::ExtraBold, -0.02, 0.90},
        {320, {20, 28, 42}, QFont::ExtraBold, -0.02, 0.98},
        {0, {17, 20, 30}, QFont::DemiBold, 0, 1.06},
    }};
    const auto fits = [length](const TitleStyle &style) { return length <= style.longest; };
    const auto *found = std::find_if(styles.begin(), styles.end() - 1, fits);
    return *found;
}

} // namespace

TakeoverMetrics TakeoverMetrics::of(QSizeF window, qsizetype titleLength)
{
    const Step step = stepOf(window.height());
    const auto pick = [step](int compact, int regular, int large) {
        return std::array{compact, regular, large}[static_cast<std::size_t>(step)];
    };
    const TitleStyle &title = titleStyle(titleLength);
    const int titleFont = title.font[static_cast<std::size_t>(step)];
    const int brandTop = pick(24, 48, 72);
    const int brandMark = pick(24, 28, 40);
    const qreal margin = std::min(sideMargin, window.width() * largestSideShare);
    const qreal widest = std::min<qreal>(pick(1120, 1160, 1680), window.width() - 2 * margin);
    return {
        .brandTop = brandTop,
        .brandMark = brandMark,
        .brandGap = pick(10, 12, 16),
        .brandFont = pick(14, 16, 22),
        .blockWidth = static_cast<int>(widest),
        .blockTop = brandTop + brandMark + pick(14, 28, 48),
        .blockShift = pick(14, 10, 0),
        .bottomMargin = pick(20, 40, 72),
        .headlineFont = pick(20, 26, 36),
        .headlineGap = pick(14, 32, 40),
        .dialSide = static_cast<int>(std::lround(std::clamp(0.28 * window.height(), 150.0, 320.0))),
        .dialGap = pick(16, 36, 44),
        .titleFont = titleFont,
        .titleWeight = title.weight,
        .titleTracking = title.tracking * titleFont,
        .titleLineFactor = title.lineFactor,
        .titleGap = pick(4, 10, 16),
        .timeFont = pick(18, 24, 34),
        .timeGap = pick(8, 16, 22),
        .hintFont = pick(15, 16, 22),
        .actionsGap = pick(22, 44, 56),
        .actionsStacked = window.width() < narrowestRowOfActions,
    };
}

int TakeoverMetrics::titleLines(qreal height) const
{
    return std::max(1, static_cast<int>(std::floor(height / (titleFont * naturalLine * titleLineFactor))));
}

qreal TakeoverMetrics::blockY(qreal windowHeight, qreal height) const
{
    return std::max<qreal>(blockTop, std::round((windowHeight - height) / 2 + blockShift));
}

} // namespace quorvane
