// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

import QtQuick
import Quorvane.Components

/// One calendar and whether it is read.
Item {
    id: row

    required property int index
    required property string calendarId
    required property string name
    required property string fullName
    required property string colorText
    required property int turn
    required property bool isRead

    required property bool hasLineAbove
    required property bool hasLineBefore

    signal switched

    function takeFocus() {
        toggle.forceActiveFocus(Qt.TabFocusReason);
    }

    Separator {
        x: 18
        width: parent.width - 36
        visible: row.hasLineAbove
    }

    Separator {
        anchors.verticalCenter: parent.verticalCenter
        visible: row.hasLineBefore
        upright: true
        height: 24
    }

    StateDot {
        x: 20
        anchors.verticalCenter: parent.verticalCenter
        side: 10
        color: Theme.dot(row.colorText, row.turn)
        opacity: row.isRead ? 1 : 0.4
    }

    Label {
        id: title

        x: 42
        anchors.verticalCenter: parent.verticalCenter
        width: toggle.x - x - 12
        text: row.name
        color: row.isRead ? Theme.text : Theme.text2
        Accessible.ignored: true

        HoverHandler {
            id: pointer
        }

        ToolTipText {
            text: row.fullName
            wanted: pointer.hovered && (title.truncated || row.fullName !== row.name)
        }
    }

    ToggleSwitch {
        id: toggle

        objectName: row.calendarId
        x: parent.width - width - 20
        anchors.verticalCenter: parent.verticalCenter
        name: row.fullName
        checked: row.isRead
        onToggled: row.switched()
    }
}
