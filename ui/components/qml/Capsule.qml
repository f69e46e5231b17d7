// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

import QtQuick
import QtQuick.Shapes

/// A capsule that keeps a clean edge when it is scaled. Its outline lies inside the item.
Shape {
    id: capsule

    property color fill: "transparent"
    property color outline: "transparent"
    property real lineWidth: 0

    readonly property real inset: lineWidth / 2
    readonly property real radius: height / 2 - inset

    ShapePath {
        fillColor: capsule.fill
        strokeColor: capsule.outline
        strokeWidth: capsule.lineWidth > 0 ? capsule.lineWidth : -1
        startX: capsule.inset + capsule.radius
        startY: capsule.inset

        PathLine {
            x: capsule.width - capsule.inset - capsule.radius
            y: capsule.inset
        }
        PathArc {
            x: capsule.width - capsule.inset - capsule.radius
            y: capsule.height - capsule.inset
            radiusX: capsule.radius
            radiusY: capsule.radius
        }
        PathLine {
            x: capsule.inset + capsule.radius
            y: capsule.height - capsule.inset
        }
        PathArc {
            x: capsule.inset + capsule.radius
            y: capsule.inset
            radiusX: capsule.radius
            radiusY: capsule.radius
        }
    }
}
