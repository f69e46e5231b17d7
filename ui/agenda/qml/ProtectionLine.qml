// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

import QtQuick
import Quorvane.Components

/// One way in which the user is told, and how it stands.
Item {
    id: line

    required property string title
    required property string state
    /// More on it, in a tooltip; may be empty.
    property string detail: ""
    required property string icon
    property bool isGood: false
    property bool isBad: false

    implicitHeight: 38

    Accessible.role: Accessible.StaticText
    Accessible.name: title + ", " + state
    Accessible.description: detail

    HoverHandler {
        id: pointer
    }

    ToolTipText {
        target: line
        text: line.detail
        wanted: pointer.hovered
    }

    IconTile {
        id: tile

        icon: line.icon
        tint: line.isBad ? Theme.warn : Theme.text
    }

    Label {
        id: head

        anchors.left: tile.right
        anchors.leftMargin: 12
        anchors.right: parent.right
        y: 10 - height / 2
        style: Label.Strong
        text: line.title
    }

    StateDot {
        id: dot

        anchors.left: head.left
        anchors.verticalCenter: words.verticalCenter
        color: line.isBad ? Theme.warn : line.isGood ? Theme.ok : Theme.text3
    }

    Label {
        id: words

        anchors.left: dot.right
        anchors.leftMargin: 7
        anchors.right: parent.right
        y: 31 - height / 2
        style: Label.Small
        text: line.state
        color: line.isBad ? Theme.warn : Theme.text2
    }
}
