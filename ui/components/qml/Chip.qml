// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

import QtQuick
import Quorvane.Components

/// A small capsule that names a state.
Rectangle {
    id: chip

    required property string text
    /// One of `Icons`, or none.
    property string icon: ""
    property color tint: Theme.accentText
    property color fill: Theme.faded(Theme.accent, 0.18)

    implicitWidth: Math.ceil(content.implicitWidth) + 16
    implicitHeight: icon === "" ? 19 : 22
    radius: height / 2
    color: fill

    Row {
        id: content

        anchors.centerIn: parent
        spacing: 5

        LineIcon {
            anchors.verticalCenter: parent.verticalCenter
            visible: chip.icon !== ""
            width: 13
            height: 13
            outline: chip.icon
            color: chip.tint
        }

        Label {
            anchors.verticalCenter: parent.verticalCenter
            style: Label.Caption
            text: chip.text
            color: chip.tint
        }
    }
}
