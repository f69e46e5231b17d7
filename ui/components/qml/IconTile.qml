// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

import QtQuick
import Quorvane.Components

/// An icon on a tile; in another tint than the text's, the tile takes it on.
Rectangle {
    id: tile

    /// One of `Icons`.
    required property string icon
    property color tint: Theme.text
    property real side: 38

    readonly property bool isTinted: !Qt.colorEqual(tint, Theme.text)

    implicitWidth: side
    implicitHeight: side
    radius: side > 32 ? 12 : 10
    color: isTinted ? Theme.faded(tint, 0.15) : Theme.raised

    LineIcon {
        anchors.centerIn: parent
        width: Math.round(0.5 * tile.side)
        height: width
        outline: tile.icon
        color: tile.tint
    }
}
