// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

import QtQuick

/// A button in the desktop's colours.
Rectangle {
    id: button

    required property string text
    property bool isDefault: false

    signal activated

    implicitWidth: label.implicitWidth + 28
    implicitHeight: label.implicitHeight + 14
    radius: 4
    opacity: pointer.pressed ? 0.7 : 1
    color: isDefault ? colours.highlight : colours.button
    border.width: activeFocus ? 2 : 1
    border.color: activeFocus ? colours.windowText : colours.mid
    activeFocusOnTab: true
    Keys.onReturnPressed: activated()
    Keys.onEnterPressed: activated()
    Keys.onSpacePressed: activated()
    Accessible.role: Accessible.Button
    Accessible.name: text
    Accessible.onPressAction: activated()

    SystemPalette { id: colours }

    Text {
        id: label

        anchors.centerIn: parent
        text: button.text
        textFormat: Text.PlainText
        color: button.isDefault ? colours.highlightedText : colours.buttonText
        Accessible.ignored: true
    }

    MouseArea {
        id: pointer

        anchors.fill: parent
        onPressed: button.forceActiveFocus()
        onClicked: button.activated()
    }
}
