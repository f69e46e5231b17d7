// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

import QtQuick
import Quorvane.Components
import Quorvane.Sheet

/// Which month it is, and the way to the ones beside it.
Item {
    id: header

    required property DateTimeChoice choice

    implicitHeight: 32

    Label {
        x: 6
        anchors.verticalCenter: parent.verticalCenter
        width: earlier.x - x
        style: Label.CardHead
        text: header.choice.monthTitle
        Accessible.role: Accessible.Heading
        Accessible.name: text
    }

    IconButton {
        id: earlier

        anchors.right: later.left
        anchors.rightMargin: 2
        icon: "M 147.5 57.5 L 85 120 L 147.5 182.5"
        name: qsTr("Previous month")
        enabled: header.choice.hasEarlierMonth
        onClicked: header.choice.moveMonths(-1)
    }

    IconButton {
        id: later

        anchors.right: parent.right
        icon: Icons.chevron
        name: qsTr("Next month")
        enabled: header.choice.hasLaterMonth
        onClicked: header.choice.moveMonths(1)
    }
}
