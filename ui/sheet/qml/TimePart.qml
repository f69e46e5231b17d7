// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

import QtQuick
import Quorvane.Components

/// The hour or the minute, as text that is taken over while it is typed.
FieldInput {
    id: part

    required property string name
    required property string value

    signal edited(string text)
    /// The person has gone on, and this is what stands here.
    signal finished(string text)
    signal stepped(int steps)

    width: 48
    leftPadding: 4
    rightPadding: 4
    horizontalAlignment: TextInput.AlignHCenter
    maximumLength: 16
    inputMethodHints: Qt.ImhTime
    text: value
    accessibleName: name
    accessibleDescription: qsTr("Up and Down change it")
    Keys.onUpPressed: stepped(1)
    Keys.onDownPressed: stepped(-1)
    Keys.onEscapePressed: event => {
        // What was not finished is not kept.
        text = value;
        event.accepted = false;
    }
    onTextEdited: edited(text)
    onValueChanged: text = value
    onActiveFocusChanged: {
        if (activeFocus) {
            selectAll();
            return;
        }
        finished(text);
        text = value;
    }

    WheelHandler {
        acceptedDevices: PointerDevice.Mouse
        onWheel: event => part.stepped(event.angleDelta.y > 0 ? 1 : -1)
    }
}
