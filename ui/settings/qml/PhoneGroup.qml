// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

import QtQuick
import Quorvane.Components
import Quorvane.Settings

/// The phone service.
SettingsGroup {
    id: group

    required property PhoneSettings phone

    title: qsTr("Phone")
    icon: Icons.phone
    note: qsTr("Sends a Pushover message to your phone when an alert opens, in case you are away from the desk.")

    SecretField {
        label: qsTr("Pushover user key")
        field: group.phone.userKey
        onAccepted: group.phone.save()
    }

    SecretField {
        label: qsTr("Application token")
        field: group.phone.token
        onAccepted: group.phone.save()
    }

    Flow {
        id: buttons

        readonly property real rest: width - (saveButton.visible ? saveButton.width + spacing : 0) - testButton.width
            - spacing - 6

        width: parent.width
        spacing: 8

        ActionButton {
            id: saveButton

            width: Math.min(implicitWidth, parent.width)
            text: qsTr("Save")
            kind: ActionButton.Primary
            visible: group.phone.edited
            enabled: group.phone.canSave
            onClicked: group.phone.save()
            onVisibleChanged: if (!visible && focus)
                testButton.forceActiveFocus(Qt.OtherFocusReason)
        }

        ActionButton {
            id: testButton

            width: Math.min(implicitWidth, parent.width)
            text: qsTr("Send test")
            icon: Icons.phone
            enabled: group.phone.canTest
            onClicked: group.phone.test()
        }

        Item {
            visible: lastTest.visible
            width: lastTest.implicitWidth + 6
            height: testButton.height

            OutcomeLine {
                id: lastTest

                x: 6
                width: implicitWidth
                anchors.verticalCenter: parent.verticalCenter
                visible: text !== "" && group.phone.actions.outcome === ""
                text: group.phone.lastTest
                problem: group.phone.lastTestFailed
            }
        }
    }

    OutcomeLine {
        width: parent.width
        text: group.phone.actions.outcome
        problem: group.phone.actions.failed
    }

    OutcomeLine {
        width: parent.width
        visible: text !== "" && group.phone.actions.outcome === ""
        text: group.phone.status
        icon: Icons.info
        tint: Theme.text3
    }
}
