// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

import QtQuick
import Quorvane.Agenda
import Quorvane.Components

/// The next meeting, large. The card is dark in both themes; its light is out while no alert would come.
Item {
    id: hero

    required property NextMeeting next

    readonly property heroFace face: next.face
    readonly property color heat: !face.isLit ? Theme.cream : face.isStarted ? Theme.ember : Theme.amber
    readonly property color litOutline: Theme.dark ? "#4a381f" : "#2a2016"
    readonly property color outOutline: Theme.dark ? "#352e26" : "#2a2016"

    implicitHeight: 196

    Accessible.role: Accessible.Grouping
    Accessible.name: face.spoken

    HeroBackdrop {
        anchors.fill: parent
        radius: 22
        source: Qt.point(dial.x + dial.width / 2, dial.y + dial.height / 2)
        warmth: hero.face.isLit ? 1 : 0
        outline: hero.face.isLit ? hero.litOutline : hero.outOutline

        Behavior on warmth {
            NumberAnimation { duration: 400 }
        }
    }

    HeroDial {
        id: dial

        x: 32
        anchors.verticalCenter: parent.verticalCenter
        face: hero.face
    }

    Item {
        id: words

        anchors.left: parent.left
        anchors.leftMargin: 206
        anchors.right: actions.left
        anchors.rightMargin: 20
        height: parent.height

        Row {
            y: 29
            height: 22
            spacing: 10

            Label {
                anchors.verticalCenter: parent.verticalCenter
                style: Label.Eyebrow
                text: qsTr("Next meeting")
                color: Theme.faded(Theme.cream, 0.70)
            }

            Chip {
                anchors.verticalCenter: parent.verticalCenter
                visible: hero.face.chip !== ""
                height: 22
                text: hero.face.chip
                icon: hero.face.isPaused ? Icons.pause : Icons.bell
                tint: Theme.ember
                fill: Theme.faded(Theme.ember, 0.13)
            }
        }

        Label {
            y: 82 - height / 2
            width: parent.width
            height: 57
            verticalAlignment: Text.AlignVCenter
            text: hero.face.countdown
            color: hero.heat
            font.pixelSize: 42
            font.weight: Font.ExtraBold
            font.letterSpacing: -1.2
            fontSizeMode: Text.HorizontalFit
            minimumPixelSize: 22
        }

        ElidedLabel {
            id: title

            y: 128 - height / 2
            width: parent.width
            style: Label.Title
            text: hero.face.title
            color: Theme.cream
        }

        Label {
            id: times

            y: 157 - height / 2
            style: Label.Strong
            text: hero.face.times
            color: Theme.faded(Theme.cream, 0.86)
        }

        StateDot {
            id: dot

            anchors.left: times.right
            anchors.leftMargin: 9
            anchors.verticalCenter: times.verticalCenter
            side: 8
            color: Theme.dot(hero.face.dotColor, hero.face.dotTurn)
        }

        ElidedLabel {
            anchors.left: dot.right
            anchors.leftMargin: 9
            anchors.right: parent.right
            anchors.verticalCenter: times.verticalCenter
            text: hero.face.calendar
            color: Theme.faded(Theme.cream, 0.70)
        }
    }

    Column {
        id: actions

        anchors.right: parent.right
        anchors.rightMargin: 28
        y: join.visible ? 55 : (parent.height - height) / 2
        spacing: 13

        ActionButton {
            id: join

            objectName: "heroJoin"
            width: Math.max(132, implicitWidth)
            visible: hero.face.canJoin
            size: ActionButton.Prominent
            kind: hero.face.isLit ? ActionButton.Primary : ActionButton.Quiet
            text: qsTr("Join")
            name: qsTr("Join %1").arg(hero.face.title)
            icon: Icons.video
            ink: hero.face.isLit ? Theme.accentInk : Theme.cream
            fill: hero.face.isLit ? Theme.accent : Theme.faded(Theme.cream, 0)
            hoverFill: hero.face.isLit ? Qt.lighter(Theme.accent, 1.08) : Theme.faded(Theme.cream, 0.08)
            outline: hero.face.isLit ? "transparent" : Theme.faded(Theme.cream, 0.30)
            onClicked: hero.next.join()

            // The card is dark in both themes.
            FocusRing {
                visible: join.showsFocus
                outline: Theme.cream
            }
        }

        Row {
            anchors.horizontalCenter: parent.horizontalCenter
            spacing: 10

            Label {
                anchors.verticalCenter: parent.verticalCenter
                text: qsTr("Alert")
                color: Theme.faded(Theme.cream, 0.86)
            }

            ToggleSwitch {
                id: alert

                objectName: "heroAlert"
                name: qsTr("Alert for %2, %1").arg(hero.face.start).arg(hero.face.title)
                checked: hero.face.alerts
                outline: "#85786a"
                knobOff: "#b9ad9d"
                onToggled: hero.next.toggleAlert()

                RoundedFrame {
                    x: -4
                    y: 1
                    width: 44
                    height: 30
                    visible: alert.showsFocus
                    radius: 15
                    lineWidth: 2
                    outline: Theme.cream
                }
            }
        }
    }
}
