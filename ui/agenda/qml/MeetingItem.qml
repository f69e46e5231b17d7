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

    /// As wide as any times in the user's way of writing them.
    readonly property real timeRoom: Math.max(106, Math.ceil(widestTimes.advanceWidth) + 8)
    readonly property color strongText: row.alerts ? Theme.text : Theme.text2

    activeFocusOnTab: isCurrent
    Accessible.role: Accessible.ListItem
    Accessible.focusable: true
    Accessible.focused: activeFocus
    Accessible.name: row.spoken

    Keys.onSpacePressed: event => {
        event.accepted = !event.modifiers;
        if (event.accepted && !event.isAutoRepeat)
            meetings.toggleAlert(row.id);
    }
    Keys.onDeletePressed: event => {
        if (event.isAutoRepeat)
            return;
        meetings.askToDelete(row.id);
        question.takeFocus();
    }
    Keys.onEscapePressed: event => {
        event.accepted = row.asksDelete;
        question.answerNo();
    }

    TextMetrics {
        id: widestTimes

        font: times.font
        text: item.meetings.widestTimes
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

    CardSlice {
        id: card

        anchors.bottom: parent.bottom
        width: parent.width
        height: 62
        isTop: item.row.isFirstOfDay
        isBottom: item.row.isLastOfDay

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
            id: times

            x: 18
            y: 20 - height / 2
            width: item.timeRoom
            style: Label.Strong
            text: item.row.times
            color: item.strongText
        }

        Label {
            x: 18
            y: 42 - height / 2
            width: item.timeRoom
            style: Label.Small
            text: item.row.duration
            color: Theme.text3
        }

        ElidedLabel {
            id: title

            readonly property real room: actions.x - 10 - x - (now.visible ? now.width + 7 : 0)

            x: 26 + item.timeRoom
            y: 21 - height / 2
            width: Math.max(0, Math.min(Math.ceil(implicitWidth), room))
            style: Label.RowTitle
            text: item.row.title
            color: item.strongText
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

            x: title.x
            y: 43 - height / 2
            side: 8
            color: Theme.dot(item.row.dotColor, item.row.dotTurn)
        }

        ElidedLabel {
            anchors.left: dot.right
            anchors.leftMargin: 7
            anchors.right: actions.left
            anchors.rightMargin: 10
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
                    activeFocusOnTab: item.isCurrent
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
                    activeFocusOnTab: item.isCurrent
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
                    activeFocusOnTab: item.isCurrent
                    name: qsTr("Alert for %2, %1").arg(item.row.start).arg(item.row.title)
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
