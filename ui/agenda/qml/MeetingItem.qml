// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

import QtQuick
import Quorvane.Agenda
import Quorvane.Components

/// A meeting in the agenda's list, as a slice of its day's card. The first of a day has the day's heading above it.
Item {
    id: item

    required property meetingRow row
    /// Tab enters the list here.
    required property bool isCurrent
    required property MeetingRows meetings

    readonly property int cardRadius: 16
    readonly property color strongText: row.alerts ? Theme.text : Theme.text2

    activeFocusOnTab: isCurrent
    Accessible.role: Accessible.ListItem
    Accessible.focusable: true
    Accessible.focused: activeFocus
    Accessible.name: row.spoken

    Keys.onSpacePressed: meetings.toggleAlert(row.id)
    Keys.onDeletePressed: {
        meetings.askToDelete(row.id);
        question.takeFocus();
    }
    Keys.onEscapePressed: event => {
        event.accepted = row.asksDelete;
        question.answerNo();
    }

    Label {
        id: dayTitle

        x: 4
        anchors.bottom: card.top
        anchors.bottomMargin: 9
        visible: item.row.isFirstOfDay
        style: Label.CardHead
        text: item.row.dayTitle
        Accessible.role: Accessible.Heading
        Accessible.name: item.row.dayTitle + ", " + item.row.dayDate
    }

    Label {
        anchors.left: dayTitle.right
        anchors.leftMargin: 8
        anchors.right: parent.right
        anchors.baseline: dayTitle.baseline
        visible: item.row.isFirstOfDay
        style: Label.Small
        text: item.row.dayDate
        color: Theme.text3
        Accessible.ignored: true
    }

    Item {
        id: card

        anchors.bottom: parent.bottom
        width: parent.width
        height: 62
        clip: true

        // Rounded corners and outlines that do not belong to this slice lie outside of it.
        Rectangle {
            readonly property int above: item.row.isFirstOfDay ? 0 : item.cardRadius + 1
            readonly property int below: item.row.isLastOfDay ? 0 : item.cardRadius + 1

            y: -above
            width: parent.width
            height: parent.height + above + below
            radius: item.cardRadius
            color: Theme.card
            border.width: 1
            border.color: Theme.line
        }

        Rectangle {
            anchors.fill: parent
            anchors.margins: 5
            visible: pointer.hovered
            radius: 11
            color: Theme.rowHover
        }

        Separator {
            x: 18
            y: parent.height - 1
            width: parent.width - 36
            visible: !item.row.isLastOfDay
        }

        HoverHandler {
            id: pointer
        }

        Label {
            x: 18
            y: 20 - height / 2
            width: 106
            style: Label.Strong
            text: item.row.times
            color: item.strongText
        }

        Label {
            x: 18
            y: 42 - height / 2
            width: 106
            style: Label.Small
            text: item.row.duration
            color: Theme.text3
        }

        Label {
            id: title

            readonly property real room: actions.x - 14 - x - (now.visible ? now.width + 7 : 0)

            x: 132
            y: 21 - height / 2
            width: Math.max(0, Math.min(Math.ceil(implicitWidth), room))
            style: Label.RowTitle
            text: item.row.title
            color: item.strongText

            HoverHandler {
                id: titleHover
            }

            ToolTipText {
                target: title
                text: item.row.title
                wanted: titleHover.hovered && title.truncated
            }
        }

        Chip {
            id: now

            anchors.left: title.right
            anchors.leftMargin: 7
            anchors.verticalCenter: title.verticalCenter
            visible: item.row.isNow
            text: qsTr("Now")
        }

        StateDot {
            id: dot

            x: 132
            y: 43 - height / 2
            side: 8
            color: Theme.dot(item.row.dotColor, item.row.dotTurn)
        }

        Label {
            anchors.left: dot.right
            anchors.leftMargin: 7
            anchors.right: actions.left
            anchors.rightMargin: 14
            anchors.verticalCenter: dot.verticalCenter
            style: Label.Small
            text: item.row.calendar
            color: Theme.text2
        }

        Item {
            id: actions

            anchors.right: parent.right
            anchors.rightMargin: 16
            height: parent.height
            width: item.row.asksDelete ? question.width : buttons.width

            Row {
                id: buttons

                anchors.verticalCenter: parent.verticalCenter
                visible: !item.row.asksDelete
                spacing: 6

                IconButton {
                    objectName: "delete"
                    focusPolicy: item.isCurrent ? Qt.StrongFocus : Qt.ClickFocus
                    visible: item.row.canDelete
                    icon: Icons.trash
                    name: qsTr("Delete %1").arg(item.row.title)
                    onClicked: {
                        item.meetings.askToDelete(item.row.id);
                        question.takeFocus();
                    }
                }

                IconButton {
                    objectName: "join"
                    focusPolicy: item.isCurrent ? Qt.StrongFocus : Qt.ClickFocus
                    visible: item.row.canJoin
                    icon: Icons.video
                    raised: true
                    tinted: item.row.isNow
                    name: qsTr("Join %1").arg(item.row.title)
                    onClicked: item.meetings.join(item.row.id)
                }

                Item {
                    width: 4
                    height: 1
                }

                ToggleSwitch {
                    objectName: "alert"
                    focusPolicy: item.isCurrent ? Qt.StrongFocus : Qt.ClickFocus
                    name: qsTr("Alert for %1, %2").arg(item.row.title).arg(item.row.start)
                    checked: item.row.alerts
                    onToggled: item.meetings.toggleAlert(item.row.id)
                }
            }

            DeleteQuestion {
                id: question

                anchors.verticalCenter: parent.verticalCenter
                visible: item.row.asksDelete
                reachable: item.isCurrent
                title: item.row.title
                onConfirmed: item.meetings.deleteAsked()
                onDeclined: {
                    item.meetings.keep();
                    item.forceActiveFocus(Qt.TabFocusReason);
                }
            }
        }

        RoundedFrame {
            anchors.fill: parent
            anchors.margins: 4
            visible: item.activeFocus
            radius: 12
            lineWidth: 2
            outline: Theme.focus
        }
    }
}
