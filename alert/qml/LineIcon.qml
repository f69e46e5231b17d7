// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

import QtQuick
import QtQuick.Shapes

/// An icon of the line set in one colour. `outline` is path data on a grid of 240 by 240.
Item {
    id: icon

    required property string outline
    required property color color

    implicitWidth: 22
    implicitHeight: 22

    Shape {
        width: 240
        height: 240
        scale: icon.width / width
        transformOrigin: Item.TopLeft

        ShapePath {
            strokeColor: icon.color
            strokeWidth: 18.5
            fillColor: "transparent"
            capStyle: ShapePath.RoundCap
            joinStyle: ShapePath.RoundJoin

            PathSvg {
                path: icon.outline
            }
        }
    }
}
