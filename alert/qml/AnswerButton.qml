// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

import QtQuick
import Quorvane.Components

/// One of the alert's responses. The view above it handles the keys.
Item {
    id: button

    enum Kind {
        Primary,
        Secondary,
        Quiet
    }

    required property int kind
    required property string text
    required property string icon
    required property color tint
    property bool showsFocus: false

    readonly property int padding: 26
    readonly property bool isPrimary: kind === AnswerButton.Primary
    readonly property color ink: isPrimary ? Theme.ink : Theme.cream

    signal activated

    function fill(hovered: bool) : color {
        switch (kind) {
        case AnswerButton.Primary:
            return hovered ? Qt.lighter(tint, 1.08) : tint;
        case AnswerButton.Secondary:
            return Theme.faded(tint, hovered ? 0.22 : 0.14);
        default:
            return Theme.faded(Theme.white, hovered ? 0.06 : 0);
        }
    }

    implicitWidth: Math.round(icon.width + content.spacing + label.implicitWidth) + 2 * padding
    implicitHeight: 54
    opacity: pointer.pressed ? 0.8 : 1
    scale: pointer.pressed ? 0.98 : 1

    Accessible.role: Accessible.Button
    Accessible.name: text
    Accessible.focusable: true
    Accessible.onPressAction: activated()

    Behavior on opacity {
        NumberAnimation { duration: 90 }
    }
    Behavior on scale {
        NumberAnimation { duration: 90 }
    }

    Capsule {
        anchors.fill: parent
        fill: button.fill(pointer.containsMouse)
        outline: button.kind === AnswerButton.Quiet ? Theme.faded(Theme.white, pointer.containsMouse ? 0.40 : 0.24)
                                                    : "transparent"
        lineWidth: button.kind === AnswerButton.Quiet ? 1 : 0
    }

    Capsule {
        anchors.fill: parent
        anchors.margins: -7
        visible: button.showsFocus && button.activeFocus
        outline: Theme.cream
        lineWidth: 3
    }

    Row {
        id: content

        anchors.centerIn: parent
        spacing: 10

        LineIcon {
            id: icon

            anchors.verticalCenter: parent.verticalCenter
            outline: button.icon
            color: button.ink
        }

        Text {
            id: label

            anchors.verticalCenter: parent.verticalCenter
            width: implicitWidth - Math.max(0, button.implicitWidth - button.width)
            text: button.text
            textFormat: Text.PlainText
            color: button.ink
            elide: Text.ElideRight
            font.family: Theme.textFace
            font.pixelSize: 18
            font.weight: Font.DemiBold
            Accessible.ignored: true
        }
    }

    MouseArea {
        id: pointer

        anchors.fill: parent
        hoverEnabled: true
        onPressed: button.forceActiveFocus()
        onClicked: button.activated()
    }
}
