// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

import QtQuick
import Quorvane.Components

/// A frame with one line of text to edit. Around the plain text input: the library's text field loses the name of a
/// password and the description as soon as somebody assistive asks.
FocusScope {
    id: field

    property alias text: input.text
    property alias length: input.length
    property alias echoMode: input.echoMode
    property alias maximumLength: input.maximumLength
    property alias horizontalAlignment: input.horizontalAlignment
    property alias inputMethodHints: input.inputMethodHints
    property alias accessibleName: input.accessibleName
    property alias accessibleDescription: input.accessibleDescription
    /// One of `Icons`, or none.
    property string icon: ""
    property string error: ""
    property string placeholderText: ""
    property color placeholderTextColor: Theme.text3
    property real leftPadding: icon === "" ? 14 : 39
    property real rightPadding: 14
    property bool showsFocus: activeFocus

    /// The person has changed the text.
    signal textEdited

    function selectAll() : void {
        input.selectAll();
    }

    // Without writing `text`, which would end a binding to it.
    function clear() : void {
        input.clear();
    }

    implicitWidth: 200
    implicitHeight: 42

    FieldFrame {
        anchors.fill: parent
        focused: field.showsFocus
        wrong: field.error !== ""
    }

    MouseArea {
        anchors.fill: parent
        cursorShape: Qt.IBeamCursor
        onPressed: input.forceActiveFocus(Qt.MouseFocusReason)
    }

    LineIcon {
        x: 14
        anchors.verticalCenter: parent.verticalCenter
        width: 16
        height: 16
        visible: field.icon !== ""
        outline: field.icon
        color: Theme.text3
    }

    Label {
        anchors.fill: input
        verticalAlignment: Text.AlignVCenter
        visible: input.length === 0 && input.preeditText === ""
        text: field.placeholderText
        color: field.placeholderTextColor
        Accessible.ignored: true
    }

    FieldText {
        id: input

        objectName: "input"
        x: field.leftPadding
        // The cursor stands after the last letter.
        width: field.width - x - field.rightPadding + 3
        height: field.height
        focus: true
        onTextEdited: field.textEdited()
    }
}
