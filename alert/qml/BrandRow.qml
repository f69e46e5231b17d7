// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

import QtQuick
import QtQuick.Shapes
import Quorvane.Alert

/// The mark and the name on top of the alert.
Row {
    id: brand

    required property color tint
    required property int markSide
    required property int fontSize

    // A brand is not mirrored.
    LayoutMirroring.enabled: false
    LayoutMirroring.childrenInherit: true

    Accessible.role: Accessible.StaticText
    Accessible.name: qsTr("Quorvane meeting alert")

    Item {
        width: brand.markSide
        height: brand.markSide

        // An emptying ring and a vane, on a grid of 64 by 64.
        Shape {
            width: 64
            height: 64
            scale: brand.markSide / width
            transformOrigin: Item.TopLeft

            ShapePath {
                strokeColor: Theme.faded(Theme.cream, 0.18)
                strokeWidth: 8.5
                fillColor: "transparent"
                capStyle: ShapePath.FlatCap

                PathSvg { path: "M6 29A23 23 0 0 1 28.96 6" }
            }
            ShapePath {
                strokeColor: brand.tint
                strokeWidth: 8.5
                fillColor: "transparent"
                capStyle: ShapePath.RoundCap

                PathSvg { path: "M29 6A23 23 0 0 1 51.32 34.56M34.56 51.32A23 23 0 0 1 6 29" }
            }
            ShapePath {
                strokeColor: Theme.cream
                strokeWidth: 2
                fillColor: Theme.cream
                joinStyle: ShapePath.RoundJoin

                PathSvg { path: "M26.5 26.5L33 44.6L57.2 57.2L44.6 33Z" }
            }
        }
    }

    Text {
        anchors.verticalCenter: parent.verticalCenter
        text: "QUORVANE"
        textFormat: Text.PlainText
        color: Theme.faded(Theme.cream, 0.86)
        font.family: Theme.textFace
        font.pixelSize: brand.fontSize
        font.weight: Font.Bold
        font.letterSpacing: 0.24 * brand.fontSize
        Accessible.ignored: true
    }
}
