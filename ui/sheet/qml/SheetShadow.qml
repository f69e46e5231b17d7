// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

pragma ComponentBehavior: Bound

import QtQuick
import Quorvane.Components

/// A soft shadow below a sheet: rounded rectangles one over the other, which every renderer can draw.
Item {
    id: shadow

    readonly property int layers: 14
    readonly property real spread: 40
    readonly property color tint: Qt.rgba(0, 0, 0, Theme.dark ? 0.026 : 0.016)

    Repeater {
        model: shadow.layers

        Rectangle {
            required property int index

            readonly property real outset: shadow.spread * (index + 1) / shadow.layers

            x: -outset
            y: 14 - outset
            width: shadow.width + 2 * outset
            height: shadow.height + 2 * outset
            radius: 22 + outset
            color: shadow.tint
        }
    }
}
