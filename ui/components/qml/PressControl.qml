// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

import QtQuick
import QtQuick.Templates as T

/// What is pressed, by pointer, Space or Return: behaviour, focus and an accessible button without any looks. Its
/// `shows…` are what a look follows.
T.Control {
    id: control

    required property string name
    readonly property bool pressed: pointer.containsPress || spaceDown
    property bool spaceDown: false
    property bool showsHover: hovered && enabled
    property bool showsPress: pressed
    property bool showsFocus: visualFocus
    /// How far the hover's fade has come, 0 to 1.
    property real hoverShare: showsHover ? 1 : 0

    signal clicked

    focusPolicy: Qt.StrongFocus
    hoverEnabled: true

    Accessible.role: Accessible.Button
    Accessible.name: name
    Accessible.onPressAction: clicked()

    Keys.onPressed: event => {
        // Whoever uses the keyboard sees where it is.
        focusReason = Qt.TabFocusReason;
        if (event.modifiers & ~(Qt.ShiftModifier | Qt.KeypadModifier))
            return;
        switch (event.key) {
        case Qt.Key_Space:
            event.accepted = true;
            spaceDown = true;
            break;
        case Qt.Key_Return:
        case Qt.Key_Enter:
            event.accepted = true;
            if (!event.isAutoRepeat)
                clicked();
            break;
        }
    }
    Keys.onReleased: event => {
        if (event.key !== Qt.Key_Space || event.isAutoRepeat)
            return;
        event.accepted = true;
        const wasDown = spaceDown;
        spaceDown = false;
        if (wasDown)
            clicked();
    }
    onActiveFocusChanged: spaceDown = false
    onEnabledChanged: spaceDown = false

    Behavior on hoverShare {
        NumberAnimation { duration: 120 }
    }

    MouseArea {
        id: pointer

        anchors.fill: parent
        onPressed: control.forceActiveFocus(Qt.MouseFocusReason)
        onClicked: control.clicked()
    }
}
