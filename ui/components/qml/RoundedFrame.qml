// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

import QtQuick
import QtQuick.Shapes

/// A rounded outline that keeps a clean edge when it is scaled. It lies inside the item.
Shape {
    id: frame

    property color outline: "transparent"
    property real lineWidth: 1
    /// Of the outer edge.
    property real radius: 0

    readonly property real inset: lineWidth / 2
    readonly property real farX: width - inset
    readonly property real farY: height - inset
    readonly property real bend: Math.max(0, Math.min(radius, width / 2, height / 2) - inset)

    ShapePath {
        fillColor: "transparent"
        strokeColor: frame.outline
        strokeWidth: frame.lineWidth
        joinStyle: ShapePath.RoundJoin
        startX: frame.inset + frame.bend
        startY: frame.inset

        PathLine {
            x: frame.farX - frame.bend
            y: frame.inset
        }
        PathArc {
            x: frame.farX
            y: frame.inset + frame.bend
            radiusX: frame.bend
            radiusY: frame.bend
        }
        PathLine {
            x: frame.farX
            y: frame.farY - frame.bend
        }
        PathArc {
            x: frame.farX - frame.bend
            y: frame.farY
            radiusX: frame.bend
            radiusY: frame.bend
        }
        PathLine {
            x: frame.inset + frame.bend
            y: frame.farY
        }
        PathArc {
            x: frame.inset
            y: frame.farY - frame.bend
            radiusX: frame.bend
            radiusY: frame.bend
        }
        PathLine {
            x: frame.inset
            y: frame.inset + frame.bend
        }
        PathArc {
            x: frame.inset + frame.bend
            y: frame.inset
            radiusX: frame.bend
            radiusY: frame.bend
        }
    }
}
