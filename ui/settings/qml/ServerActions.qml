// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

import QtQuick
import Quorvane.Components
import Quorvane.Settings

/// What can be done with the server. Removing asks once more, in place.
Item {
    id: actions

    required property ServerSettings server

    implicitHeight: server.askingToRemove ? question.height : buttons.height

    Flow {
        id: buttons

        /// What the buttons leave free of one line.
        readonly property real rest: width - saveButton.width - testButton.width - removeButton.width - 3 * spacing

        width: parent.width
        spacing: 8
        visible: !actions.server.askingToRemove

        ActionButton {
            id: saveButton

            width: Math.min(implicitWidth, parent.width)
            text: qsTr("Save")
            kind: ActionButton.Primary
            enabled: actions.server.canSave
            onClicked: actions.server.save()
        }

        ActionButton {
            id: testButton

            width: Math.min(implicitWidth, parent.width)
            text: qsTr("Test")
            Accessible.name: qsTr("Test the server")
            enabled: actions.server.canTest
            onClicked: actions.server.test()
        }

        Item {
            width: buttons.rest
            height: 1
            visible: buttons.rest >= 0
        }

        ActionButton {
            id: removeButton

            width: Math.min(implicitWidth, parent.width)
            text: qsTr("Remove shared schedule")
            kind: ActionButton.Danger
            enabled: actions.server.canTest
            onClicked: {
                const byKeys = visualFocus;
                actions.server.askToRemove();
                keepButton.forceActiveFocus(byKeys ? Qt.TabFocusReason : Qt.OtherFocusReason);
            }
        }
    }

    Column {
        id: question

        function answered(byKeys: bool) : void {
            removeButton.forceActiveFocus(byKeys ? Qt.TabFocusReason : Qt.OtherFocusReason);
        }

        width: parent.width
        spacing: 10
        visible: actions.server.askingToRemove
        Accessible.role: Accessible.Grouping
        Accessible.name: words.text
        Keys.onEscapePressed: {
            actions.server.keepSchedule();
            answered(true);
        }

        Label {
            id: words

            width: parent.width
            style: Label.Small
            text: qsTr("The server will forget your meetings, and your schedule will no longer be shared.")
            wrapMode: Text.Wrap
            Accessible.ignored: true
        }

        Flow {
            width: parent.width
            spacing: 8

            ActionButton {
                id: keepButton

                width: Math.min(implicitWidth, parent.width)
                text: qsTr("Keep it")
                onClicked: {
                    const byKeys = visualFocus;
                    actions.server.keepSchedule();
                    question.answered(byKeys);
                }
            }

            ActionButton {
                width: Math.min(implicitWidth, parent.width)
                text: qsTr("Remove shared schedule")
                kind: ActionButton.Danger
                onClicked: {
                    const byKeys = visualFocus;
                    actions.server.removeSchedule();
                    question.answered(byKeys);
                }
            }
        }
    }
}
