// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

import QtQuick
import Quorvane.Components

/// One of the first steps: its number, or a check once it is done.
Row {
    id: step

    required property int number
    required property string text
    property bool isDone: false
    property bool isCurrent: false

    spacing: 8

    Accessible.role: Accessible.StaticText
    Accessible.name: (isDone ? qsTr("Step %1, done: %2") : qsTr("Step %1: %2")).arg(number).arg(text)

    Rectangle {
        anchors.verticalCenter: parent.verticalCenter
        width: 22
        height: 22
        radius: 11
        color: step.isDone ? Theme.faded(Theme.ok, 0.16) : step.isCurrent ? Theme.faded(Theme.accent, 0.16)
            : "transparent"
        border.width: step.isDone || step.isCurrent ? 0 : 1
        border.color: Theme.lineStrong

        LineIcon {
            anchors.centerIn: parent
            visible: step.isDone
            width: 13
            height: 13
            outline: Icons.check
            color: Theme.ok
        }

        Label {
            anchors.centerIn: parent
            visible: !step.isDone
            style: Label.Caption
            text: step.number
            color: step.isCurrent ? Theme.accentText : Theme.text3
        }
    }

    Label {
        anchors.verticalCenter: parent.verticalCenter
        style: Label.Small
        text: step.text
        color: step.isCurrent ? Theme.text : Theme.text3
    }
}
