// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

import QtQuick
import Quorvane.Components

/// A labelled field for one line of text.
FocusScope {
    id: box

    required property string label
    property alias text: input.text
    property alias placeholder: input.placeholderText
    property alias maximumLength: input.maximumLength
    /// One of `Icons`, or none.
    property alias icon: input.icon
    property string hint: ""
    /// What is wrong with the text; empty if nothing.
    property string error: ""
    /// Whether the characters are hidden.
    property bool masked: false
    property alias showsFocus: input.showsFocus

    /// The person has changed the text.
    signal edited(string text)

    implicitWidth: 240
    implicitHeight: note.visible ? note.y + note.height : input.y + input.height

    Label {
        id: caption

        width: parent.width
        style: Label.SmallStrong
        text: box.label
        Accessible.ignored: true
    }

    FieldInput {
        id: input

        y: caption.height + 7
        width: parent.width
        focus: true
        error: box.error
        echoMode: box.masked ? TextInput.Password : TextInput.Normal
        accessibleName: box.label
        accessibleDescription: box.error !== "" ? box.error : box.hint
        onTextEdited: box.edited(text)
    }

    FieldNote {
        id: note

        y: input.y + input.height + 7
        width: parent.width
        hint: box.hint
        error: box.error
    }
}
