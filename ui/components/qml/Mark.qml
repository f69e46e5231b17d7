// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

import QtQuick
import QtQuick.Shapes
import Quorvane.Components

/// The mark: an emptying ring and a vane, on a grid of 64 by 64. It is not mirrored.
Item {
    id: mark

    property real side: 30
    property color tint: Theme.accent
    property color vane: Theme.text
    property color track: Theme.markTrack

    implicitWidth: side
    implicitHeight: side
    LayoutMirroring.enabled: false

    Shape {
        width: 64
        height: 64
        scale: mark.side / width
        transformOrigin: Item.TopLeft

        ShapePath {
            strokeColor: mark.track
            strokeWidth: 8.5
            fillColor: "transparent"
            capStyle: ShapePath.FlatCap

            PathSvg { path: "M6 29A23 23 0 0 1 28.96 6" }
        }
        ShapePath {
            strokeColor: mark.tint
            strokeWidth: 8.5
            fillColor: "transparent"
            capStyle: ShapePath.RoundCap

            PathSvg { path: "M29 6A23 23 0 0 1 51.32 34.56M34.56 51.32A23 23 0 0 1 6 29" }
        }
        ShapePath {
            strokeColor: mark.vane
            strokeWidth: 2
            fillColor: mark.vane
            joinStyle: ShapePath.RoundJoin

            PathSvg { path: "M26.5 26.5L33 44.6L57.2 57.2L44.6 33Z" }
        }
    }
}
