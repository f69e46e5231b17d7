// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

import QtQuick
import QtQuick.Templates as T
import Quorvane.Components

/// The line of text of a field.
T.TextField {
    id: input

    /// One of `Icons`, or none.
    property string icon: ""
    property string error: ""
    property bool showsFocus: activeFocus

    implicitHeight: 42
    leftPadding: icon === "" ? 14 : 39
    rightPadding: 14
    verticalAlignment: TextInput.AlignVCenter
    selectByMouse: true
    color: enabled ? Theme.text : Theme.text3
    placeholderTextColor: Theme.text3
    selectionColor: Theme.faded(Theme.accent, 0.35)
    selectedTextColor: Theme.text
    font.family: Theme.textFace
    font.pixelSize: 14
    font.weight: Font.Medium
    // It stands still, so that a field at rest wakes nobody.
    cursorDelegate: Item {
        visible: (parent as TextInput)?.cursorVisible ?? false

        Rectangle {
            x: 1
            y: 1
            width: 2
            height: parent.height - 2
            color: Theme.accentText
        }
    }

    background: FieldFrame {
        focused: input.showsFocus
        wrong: input.error !== ""
    }

    LineIcon {
        x: 14
        anchors.verticalCenter: parent.verticalCenter
        width: 16
        height: 16
        visible: input.icon !== ""
        outline: input.icon
        color: Theme.text3
    }

    Label {
        anchors.fill: parent
        anchors.leftMargin: input.leftPadding
        anchors.rightMargin: input.rightPadding
        verticalAlignment: Text.AlignVCenter
        visible: input.length === 0 && input.preeditText === ""
        text: input.placeholderText
        color: input.placeholderTextColor
        Accessible.ignored: true
    }
}
