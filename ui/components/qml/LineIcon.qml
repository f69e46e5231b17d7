// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

import QtQuick
import QtQuick.Shapes
import Quorvane.Components

/// An icon of the line set in one colour. Its lines get thinner, in relation, as it gets larger.
Item {
    id: icon

    /// Path data on a grid of 240 by 240: one of `Icons`.
    required property string outline
    property color color: Theme.text

    implicitWidth: 22
    implicitHeight: 22

    Shape {
        width: 240
        height: 240
        scale: icon.width / width
        transformOrigin: Item.TopLeft

        ShapePath {
            strokeColor: icon.color
            strokeWidth: icon.width >= 28 ? 16 : icon.width > 16 ? 18.5 : 20
            fillColor: "transparent"
            capStyle: ShapePath.RoundCap
            joinStyle: ShapePath.RoundJoin

            PathSvg {
                path: icon.outline
            }
        }
    }
}
