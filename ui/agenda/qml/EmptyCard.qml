// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

import QtQuick
import Quorvane.Agenda
import Quorvane.Components

/// Stands where the list would be. For a new user it has the steps to the first alert.
Card {
    id: card

    required property EmptyAgenda empty

    readonly property emptyFace face: empty.face

    signal addMeetingRequested
    signal calendarsRequested

    implicitHeight: block.height + 2 * 32

    Column {
        id: block

        anchors.centerIn: parent
        width: Math.min(parent.width, 520)

        TickRing {
            anchors.horizontalCenter: parent.horizontalCenter
            width: 162
            height: 162
            markColor: Theme.text3
            tickColor: Theme.lineStrong
            Accessible.ignored: true

            Mark {
                anchors.centerIn: parent
                side: 76
            }
        }

        Item {
            width: 1
            height: 33
        }

        Label {
            width: parent.width
            horizontalAlignment: Text.AlignHCenter
            style: Label.Title
            text: card.face.title
            wrapMode: Text.Wrap
            Accessible.role: Accessible.Heading
            Accessible.name: text
        }

        Item {
            width: 1
            height: 8
        }

        Label {
            anchors.horizontalCenter: parent.horizontalCenter
            width: Math.min(parent.width, 410)
            horizontalAlignment: Text.AlignHCenter
            text: card.face.text
            color: Theme.text2
            wrapMode: Text.Wrap
            lineHeight: 21
            lineHeightMode: Text.FixedHeight
            Accessible.role: Accessible.StaticText
            Accessible.name: text
        }

        Item {
            width: 1
            height: 24
        }

        Flow {
            anchors.horizontalCenter: parent.horizontalCenter
            width: Math.min(parent.width, connect.room + add.room + preview.room + leave.room - spacing)
            spacing: 10

            EmptyAction {
                id: connect

                objectName: "connect"
                offered: card.face.offersConnect
                isFirst: true
                text: qsTr("Connect a calendar")
                icon: Icons.calendar
                onClicked: card.calendarsRequested()
            }

            EmptyAction {
                id: add

                objectName: "add"
                offered: card.face.offersAdd
                isFirst: !connect.offered
                text: qsTr("Add meeting")
                icon: Icons.plus
                onClicked: card.addMeetingRequested()
            }

            EmptyAction {
                id: preview

                objectName: "preview"
                offered: card.face.offersPreview
                isFirst: !add.offered
                text: qsTr("Preview alert")
                icon: Icons.play
                onClicked: card.empty.previewAlert()
            }

            EmptyAction {
                id: leave

                objectName: "leave"
                offered: card.face.offersList
                isFirst: false
                text: qsTr("Show my meetings")
                icon: Icons.agenda
                onClicked: card.empty.leaveSteps()
            }
        }

        Item {
            width: 1
            height: 34
            visible: steps.visible
        }

        Flow {
            id: steps

            anchors.horizontalCenter: parent.horizontalCenter
            width: Math.min(parent.width, first.width + second.width + third.width + 2 * spacing)
            visible: card.face.step > 0
            spacing: 20

            FirstStep {
                id: first

                number: 1
                text: card.face.calendarStep
                isDone: card.face.isCalendarDone
                isCurrent: card.face.step === 1
            }

            FirstStep {
                id: second

                number: 2
                text: card.face.meetingStep
                isDone: card.face.isMeetingDone
                isCurrent: card.face.step === 2
            }

            FirstStep {
                id: third

                number: 3
                text: qsTr("See an alert")
                isCurrent: card.face.step === 3
            }
        }
    }
}
