// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

import QtQuick
import Quorvane.Components

/// A labelled field for something secret. What is stored never comes here: of it, `saved` has the last characters only,
/// which stand behind dots until something else is typed.
FocusScope {
    id: box

    required property string label
    /// The last characters of what is stored; empty if nothing is.
    property string saved: ""
    /// What was typed to replace it.
    property alias value: input.text
    property string hint: ""
    property string error: ""
    property alias showsFocus: input.showsFocus

    /// Whether what is stored is to be replaced by `value`, or cleared if that is empty.
    readonly property bool touched: erased || value !== ""
    property bool erased: false
    /// As many as there is room for, so that the last characters are not cut off.
    readonly property int dots: Math.max(4, Math.min(24, Math.floor((width - 39 - 44 - 50) / dot.advanceWidth)))
    readonly property bool showsSaved: saved !== "" && !touched

    /// The person has typed. Empty: what is stored stays.
    signal edited(string text)
    /// What is stored is to be forgotten.
    signal cleared

    /// Forgets what was typed and shows what is stored.
    function reset() : void {
        erased = false;
        input.clear();
    }

    onSavedChanged: reset()

    implicitWidth: 240
    implicitHeight: note.visible ? note.y + note.height : input.y + input.height

    TextMetrics {
        id: dot

        text: "\u2022"
        font.family: Theme.textFace
        font.pixelSize: 14
        font.weight: Font.Medium
    }

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
        icon: Icons.key
        rightPadding: clearButton.visible ? 44 : 14
        error: box.error
        echoMode: TextInput.Password
        placeholderText: box.showsSaved ? "\u2022".repeat(box.dots) + box.saved : ""
        placeholderTextColor: Theme.text
        accessibleName: box.label
        accessibleDescription: box.error !== "" ? box.error
            : box.showsSaved ? qsTr("Saved, ending in %1").arg(box.saved) : box.hint
        onTextEdited: {
            box.erased = false;
            box.edited(text);
        }
        Keys.onEscapePressed: event => {
            event.accepted = box.touched;
            if (!box.touched)
                return;
            box.reset();
            box.edited("");
        }
    }

    IconButton {
        id: clearButton

        objectName: "clear"
        x: parent.width - width - 5
        y: input.y + 5
        visible: box.showsSaved
        icon: Icons.close
        name: qsTr("Clear %1").arg(box.label)
        onClicked: {
            box.erased = true;
            box.cleared();
            input.forceActiveFocus(Qt.TabFocusReason);
        }
    }

    FieldNote {
        id: note

        y: input.y + input.height + 7
        width: parent.width
        hint: box.hint
        error: box.error
    }
}
