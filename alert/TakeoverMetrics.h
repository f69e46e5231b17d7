// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QObject>
#include <QSizeF>
#include <QtQml/qqmlregistration.h>

namespace quorvane {

/// The sizes of the takeover view for one window size and one length of title, in logical pixels. A step by
/// height (compact below 760, regular, large from 1600) sets most of them.
struct TakeoverMetrics
{
    Q_GADGET
    QML_VALUE_TYPE(takeoverMetrics)
    Q_PROPERTY(int brandTop MEMBER brandTop CONSTANT)
    Q_PROPERTY(int brandMark MEMBER brandMark CONSTANT)
    Q_PROPERTY(int brandGap MEMBER brandGap CONSTANT)
    Q_PROPERTY(int brandFont MEMBER brandFont CONSTANT)
    Q_PROPERTY(int blockWidth MEMBER blockWidth CONSTANT)
    Q_PROPERTY(int blockTop MEMBER blockTop CONSTANT)
    Q_PROPERTY(int blockShift MEMBER blockShift CONSTANT)
    Q_PROPERTY(int bottomMargin MEMBER bottomMargin CONSTANT)
    Q_PROPERTY(int headlineFont MEMBER headlineFont CONSTANT)
    Q_PROPERTY(int headlineGap MEMBER headlineGap CONSTANT)
    Q_PROPERTY(int dialSide MEMBER dialSide CONSTANT)
    Q_PROPERTY(int dialGap MEMBER dialGap CONSTANT)
    Q_PROPERTY(int titleFont MEMBER titleFont CONSTANT)
    Q_PROPERTY(int titleWeight MEMBER titleWeight CONSTANT)
    Q_PROPERTY(qreal titleTracking MEMBER titleTracking CONSTANT)
    Q_PROPERTY(qreal titleLineFactor MEMBER titleLineFactor CONSTANT)
    Q_PROPERTY(int titleGap MEMBER titleGap CONSTANT)
    Q_PROPERTY(int timeFont MEMBER timeFont CONSTANT)
    Q_PROPERTY(int timeGap MEMBER timeGap CONSTANT)
    Q_PROPERTY(int hintFont MEMBER hintFont CONSTANT)
    Q_PROPERTY(int actionsGap MEMBER actionsGap CONSTANT)
    Q_PROPERTY(bool actionsStacked MEMBER actionsStacked CONSTANT)

public:
    /// Top, mark, gap to the word and type size of the brand row.
    int brandTop = 0;
    int brandMark = 0;
    int brandGap = 0;
    int brandFont = 0;
    /// The block from headline to actions: its width, its highest top, how far below the centre it sits, and
    /// the margin to keep below it.
    int blockWidth = 0;
    int blockTop = 0;
    int blockShift = 0;
    int bottomMargin = 0;
    /// Type sizes and the gap below each part, from top to bottom.
    int headlineFont = 0;
    int headlineGap = 0;
    int dialSide = 0;
    int dialGap = 0;
    int titleFont = 0;
    int titleWeight = 0;
    qreal titleTracking = 0;
    qreal titleLineFactor = 1;
    int titleGap = 0;
    int timeFont = 0;
    int timeGap = 0;
    int hintFont = 0;
    int actionsGap = 0;
    bool actionsStacked = false;

    bool operator==(const TakeoverMetrics &) const = default;

    [[nodiscard]] static TakeoverMetrics of(QSizeF window, qsizetype titleLength);

    /// How many lines of the title fit into `height`; at least one.
    Q_INVOKABLE [[nodiscard]] int titleLines(qreal height) const;

    /// Where a block of `height` begins in a window of `windowHeight`.
    Q_INVOKABLE [[nodiscard]] qreal blockY(qreal windowHeight, qreal height) const;
};

} // namespace quorvane
