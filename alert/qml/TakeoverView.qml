// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

import QtQuick
import Quorvane.Alert
import Quorvane.Components

/// The content of an alert panel. Return acknowledges whatever has the focus, Space presses the focused button, Tab
/// goes round; every other key is swallowed.
FocusScope {
    id: view

    required property Takeover takeover

    readonly property takeoverMetrics metrics: takeover.metrics(width, height)
    readonly property list<AnswerButton> buttons: [joinButton, readyButton, remindButton]
    property color tint: takeover.tint
    property bool keysUsed: false

    focus: true
    LayoutMirroring.enabled: takeover.mirrored
    LayoutMirroring.childrenInherit: true

    Accessible.role: Accessible.Dialog
    Accessible.name: takeover.windowTitle

    function moveFocus(step: int) : void {
        let current = 1;
        for (let index = 0; index < buttons.length; ++index) {
            if (buttons[index].activeFocus)
                current = index;
        }
        do {
            current = (current + step + buttons.length) % buttons.length;
        } while (!buttons[current].visible);
        buttons[current].forceActiveFocus(Qt.TabFocusReason);
    }

    function pressFocused() : void {
        for (let index = 0; index < buttons.length; ++index) {
            if (buttons[index].activeFocus)
                buttons[index].activated();
        }
    }

    Keys.onPressed: event => {
        event.accepted = true;
        keysUsed = true;
        if (event.isAutoRepeat)
            return;
        switch (event.key) {
        case Qt.Key_Return:
        case Qt.Key_Enter:
            takeover.acknowledge();
            break;
        case Qt.Key_Space:
            pressFocused();
            break;
        case Qt.Key_Tab:
            moveFocus(event.modifiers & Qt.ShiftModifier ? -1 : 1);
            break;
        case Qt.Key_Backtab:
            moveFocus(-1);
            break;
        }
    }
    Keys.onReleased: event => event.accepted = true

    Behavior on tint {
        ColorAnimation { duration: 400 }
    }

    Rectangle {
        anchors.fill: parent
        color: Theme.night
    }

    Glow {
        // At its widest breath it reaches 778 pixels from the centre.
        width: Math.min(view.width, 2 * 778)
        height: Math.min(view.height, 2 * 778)
        x: Math.floor((view.width - width) / 2)
        y: Math.floor((view.height - height) / 2)
        breath: view.takeover.glowScale
        tint: view.tint
    }

    BrandRow {
        objectName: "brand"
        anchors.horizontalCenter: parent.horizontalCenter
        y: view.metrics.brandTop
        tint: view.tint
        markSide: view.metrics.brandMark
        fontSize: view.metrics.brandFont
        spacing: view.metrics.brandGap
    }

    Announcement {
        text: view.takeover.announcement
        Accessible.role: Accessible.AlertMessage
        Accessible.name: text
    }

    Item {
        id: block

        objectName: "block"
        width: view.metrics.blockWidth
        height: details.height + view.metrics.actionsGap + actions.height
        anchors.horizontalCenter: parent.horizontalCenter
        y: view.metrics.blockY(view.height, height)
        transform: Translate { id: slide }

        MeetingDetails {
            id: details

            objectName: "details"
            width: parent.width
            metrics: view.metrics
            takeover: view.takeover
            tint: view.tint
            room: view.height - view.metrics.blockTop - view.metrics.bottomMargin - view.metrics.actionsGap
                - actions.height
        }

        Grid {
            id: actions

            readonly property real rowWidth: (joinButton.visible ? joinButton.implicitWidth + spacing : 0)
                + readyButton.implicitWidth + spacing + remindButton.implicitWidth
            readonly property bool stacked: view.metrics.actionsStacked || rowWidth > block.width
            readonly property real stackedWidth: Math.min(block.width, Math.max(340, joinButton.implicitWidth,
                readyButton.implicitWidth, remindButton.implicitWidth))

            objectName: "actions"
            x: Math.round((block.width - width) / 2)
            y: details.height + view.metrics.actionsGap
            spacing: 14
            columns: stacked ? 1 : joinButton.visible ? 3 : 2

            AnswerButton {
                id: joinButton

                objectName: "join"
                width: actions.stacked ? actions.stackedWidth : implicitWidth
                visible: view.takeover.hasJoinLink
                kind: AnswerButton.Primary
                text: qsTr("Join meeting")
                icon: Icons.video
                tint: view.tint
                showsFocus: view.keysUsed
                Keys.forwardTo: [view]
                onActivated: view.takeover.join()
            }

            AnswerButton {
                id: readyButton

                objectName: "ready"
                width: actions.stacked ? actions.stackedWidth : implicitWidth
                focus: true
                kind: view.takeover.hasJoinLink ? AnswerButton.Secondary : AnswerButton.Primary
                text: qsTr("I’m ready")
                icon: Icons.check
                tint: view.tint
                showsFocus: view.keysUsed
                Keys.forwardTo: [view]
                onActivated: view.takeover.acknowledge()
            }

            AnswerButton {
                id: remindButton

                objectName: "remind"
                width: actions.stacked ? actions.stackedWidth : implicitWidth
                kind: AnswerButton.Quiet
                text: qsTr("Remind me in 30 seconds")
                icon: Icons.clockArrow
                tint: view.tint
                showsFocus: view.keysUsed
                Keys.forwardTo: [view]
                onActivated: view.takeover.snooze()
            }
        }
    }

    // The alert is readable from its first frame on, however slow the frames after it come.
    ParallelAnimation {
        id: entrance

        NumberAnimation {
            target: block
            property: "opacity"
            from: 0.4
            to: 1
            duration: 180
        }
        NumberAnimation {
            target: slide
            property: "y"
            from: view.takeover.reduceMotion ? 0 : 12
            to: 0
            duration: 260
            easing.type: Easing.OutCubic
        }
    }

    Connections {
        function onRunningChanged() {
            entrance.start();
        }

        target: view.takeover
    }
}
