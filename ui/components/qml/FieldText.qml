// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

import QtQuick
import Quorvane.Components

/// The text of a field while it is edited, without anything around it.
TextInput {
    id: input

    property string accessibleName: ""
    property string accessibleDescription: ""

    function showBeginning() : void {
        if (!activeFocus)
            ensureVisible(0);
    }

    activeFocusOnTab: true
    selectByMouse: true
    clip: true
    verticalAlignment: TextInput.AlignVCenter
    color: enabled ? Theme.text : Theme.text3
    selectionColor: Theme.faded(Theme.accent, 0.35)
    selectedTextColor: Theme.text
    passwordCharacter: "\u2022"
    font.family: Theme.textFace
    font.pixelSize: 14
    font.weight: Font.Medium
    // It stands still, so that a field at rest wakes nobody.
    cursorDelegate: Item {
        width: 3
        visible: (parent as TextInput)?.cursorVisible ?? false

        Rectangle {
            x: 1
            y: 1
            width: 2
            height: parent.height - 2
            color: Theme.accentText
        }
    }

    Accessible.role: Accessible.EditableText
    Accessible.name: accessibleName
    Accessible.description: accessibleDescription

    // Where nobody types, a text too long shows its beginning.
    onTextChanged: settled.restart()
    onWidthChanged: settled.restart()
    onActiveFocusChanged: settled.restart()

    Timer {
        id: settled

        interval: 0
        onTriggered: input.showBeginning()
    }
}
