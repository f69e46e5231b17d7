// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

import QtQuick
import Quorvane.Components
import Quorvane.Sheet

/// The time of day: typed, or stepped by arrows, wheel and buttons.
Item {
    id: row

    required property DateTimeChoice choice

    signal done

    implicitHeight: 40

    Row {
        height: parent.height
        spacing: 6

        TimePart {
            id: hour

            objectName: "hour"
            height: parent.height
            name: qsTr("Hour")
            value: row.choice.hour
            onEdited: text => {
                if (row.choice.typeHour(text))
                    minute.forceActiveFocus(Qt.TabFocusReason);
            }
            onFinished: text => row.choice.leaveHour(text)
            onStepped: steps => row.choice.stepHours(steps)
        }

        Label {
            anchors.verticalCenter: parent.verticalCenter
            style: Label.Strong
            text: ":"
            Accessible.ignored: true
        }

        TimePart {
            id: minute

            objectName: "minute"
            height: parent.height
            name: qsTr("Minute")
            value: row.choice.minute
            onEdited: text => row.choice.typeMinute(text)
            onFinished: text => row.choice.leaveMinute(text)
            onStepped: steps => row.choice.stepMinutes(steps)
        }

        ActionButton {
            objectName: "half"
            anchors.verticalCenter: parent.verticalCenter
            visible: text !== ""
            size: ActionButton.Compact
            text: row.choice.half
            name: qsTr("Half of the day: %1").arg(row.choice.half)
            onClicked: row.choice.switchHalf()
        }

        Row {
            anchors.verticalCenter: parent.verticalCenter

            IconButton {
                icon: Icons.chevronDown
                name: qsTr("5 minutes earlier")
                onClicked: row.choice.stepMinutes(-1)
            }

            IconButton {
                icon: "M 57.5 147.5 L 120 85 L 182.5 147.5"
                name: qsTr("5 minutes later")
                onClicked: row.choice.stepMinutes(1)
            }
        }
    }

    ActionButton {
        objectName: "done"
        anchors.right: parent.right
        anchors.verticalCenter: parent.verticalCenter
        size: ActionButton.Compact
        text: qsTr("Done")
        onClicked: row.done()
    }
}
