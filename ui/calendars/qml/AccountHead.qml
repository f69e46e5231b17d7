// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

import QtQuick
import Quorvane.Calendars
import Quorvane.Components

/// An account's name and how it is doing.
Item {
    id: head

    required property string name
    required property string stateText
    required property int mood
    required property string folder
    required property string message
    required property CalendarChoices calendarChoices

    readonly property bool isFailing: mood === AccountList.Mood.failing

    implicitHeight: message === "" ? 32 : 32 + words.height

    Label {
        id: title

        x: 4
        y: 16 - height / 2
        width: Math.min(implicitWidth, health.x - x - 16)
        style: Label.CardHead
        text: head.name
        Accessible.role: Accessible.Heading
        Accessible.name: text

        HoverHandler {
            id: pointer
        }

        ToolTipText {
            text: title.text
            wanted: pointer.hovered && title.truncated
        }
    }

    Row {
        id: health

        x: actions.x - width - (head.isFailing ? 20 : disconnect.visible ? 7 : 0)
        height: 32
        spacing: 7

        StateDot {
            anchors.verticalCenter: parent.verticalCenter
            color: head.isFailing ? Theme.warn : head.mood === AccountList.Mood.good ? Theme.ok : Theme.text3
        }

        Label {
            anchors.verticalCenter: parent.verticalCenter
            style: Label.Small
            text: head.stateText
            color: head.isFailing ? Theme.warn : Theme.text2
            Accessible.role: Accessible.StaticText
            Accessible.name: text
        }
    }

    Row {
        id: actions

        anchors.right: parent.right
        anchors.rightMargin: disconnect.visible ? -9 : 4
        spacing: 4

        ActionButton {
            objectName: "again"
            visible: head.isFailing
            kind: ActionButton.Primary
            size: ActionButton.Compact
            text: qsTr("Try again")
            Accessible.description: head.name
            onClicked: head.calendarChoices.refresh()
        }

        ActionButton {
            id: disconnect

            objectName: "disconnect"
            visible: head.folder !== ""
            kind: ActionButton.Plain
            size: ActionButton.Compact
            text: qsTr("Disconnect")
            Accessible.description: head.name
            onClicked: head.calendarChoices.disconnectFolder(head.folder)
        }
    }

    Label {
        id: words

        x: 4
        y: 30
        visible: head.message !== ""
        width: parent.width - 8
        style: Label.Small
        text: head.message
        color: Theme.text2
        wrapMode: Text.Wrap
        Accessible.role: Accessible.StaticText
        Accessible.name: text
    }
}
