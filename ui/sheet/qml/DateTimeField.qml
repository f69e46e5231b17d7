// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

import QtQuick
import QtQuick.Templates as T
import Quorvane.Components
import Quorvane.Sheet

/// A labelled point in time, which opens a picker.
FocusScope {
    id: box

    required property string label
    required property DateTimeChoice choice
    /// What is wrong with it; empty if nothing.
    property string error: ""

    readonly property alias isOpen: picker.visible

    function open() {
        choice.begin();
        picker.open();
    }

    implicitHeight: note.visible ? note.y + note.height : field.y + field.height

    Label {
        id: caption

        width: parent.width
        style: Label.SmallStrong
        text: box.label
        Accessible.ignored: true
    }

    T.AbstractButton {
        id: field

        objectName: "starts"
        y: caption.height + 7
        width: parent.width
        implicitHeight: 42
        leftPadding: 39
        rightPadding: 40
        focus: true
        focusPolicy: Qt.StrongFocus
        onClicked: picker.visible ? picker.close() : box.open()
        Keys.onDownPressed: box.open()
        Accessible.name: qsTr("%1: %2").arg(box.label).arg(box.choice.text)
        Accessible.description: box.error

        contentItem: Label {
            verticalAlignment: Text.AlignVCenter
            text: box.choice.text
            Accessible.ignored: true
        }

        background: FieldFrame {
            focused: field.visualFocus || picker.visible
            wrong: box.error !== ""
        }

        LineIcon {
            x: 13
            anchors.verticalCenter: parent.verticalCenter
            width: 17
            height: 17
            outline: Icons.calendar
            color: Theme.text3
        }

        LineIcon {
            x: parent.width - width - 12
            anchors.verticalCenter: parent.verticalCenter
            width: 16
            height: 16
            outline: Icons.chevronDown
            color: Theme.text2
        }

        DateTimePicker {
            id: picker

            y: field.height + 6
            choice: box.choice
            onClosed: field.forceActiveFocus(Qt.TabFocusReason)
        }
    }

    FieldNote {
        id: note

        y: field.y + field.height + 7
        width: parent.width
        hint: ""
        error: box.error
    }
}
