// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

import QtQuick
import QtQuick.Shapes
import Quorvane.Components

/// Something is being done. Its arc goes around in steps, few enough for drawing in software, and stands still where
/// motion is reduced.
Item {
    id: ring

    property color color: Theme.accentText

    implicitWidth: 14
    implicitHeight: 14
    Accessible.ignored: true

    Timer {
        interval: 100
        repeat: true
        running: ring.visible && !Theme.reduceMotion
        onTriggered: arc.rotation = (arc.rotation + 30) % 360
    }

    component Turn: ShapePath {
        id: turn

        required property real middle
        property real sweep: 360

        fillColor: "transparent"
        strokeWidth: 2
        capStyle: ShapePath.RoundCap

        PathAngleArc {
            centerX: turn.middle
            centerY: turn.middle
            radiusX: turn.middle - 1
            radiusY: radiusX
            startAngle: -90
            sweepAngle: turn.sweep
        }
    }

    Shape {
        anchors.fill: parent

        Turn {
            middle: ring.width / 2
            strokeColor: Theme.markTrack
        }
    }

    Shape {
        id: arc

        anchors.fill: parent

        Turn {
            middle: ring.width / 2
            strokeColor: ring.color
            sweep: 100
        }
    }
}
