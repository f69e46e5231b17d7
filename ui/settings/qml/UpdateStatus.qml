// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

import QtQuick
import Quorvane.Components
import Quorvane.Settings

/// How far an update is, and what the person can do about it.
Column {
    id: status

    required property UpdateSettings updates
    /// What gets the keyboard when the button that had it is needed no more.
    required property Item fallback

    readonly property int phase: updates.phase
    readonly property bool isBusy: phase === UpdateSettings.Phase.checking || phase === UpdateSettings.Phase.preparing
    readonly property bool isDone: phase === UpdateSettings.Phase.upToDate || phase === UpdateSettings.Phase.installed
    /// What the person would press next; null if there is nothing.
    readonly property Item nextStep: installButton.visible ? installButton : stopButton.visible ? stopButton
        : retryButton.visible ? retryButton : null
    property bool usedKeys: false

    function passFocus() : void {
        const heir = nextStep ?? fallback;
        let place = status;
        while (place && place !== Window.activeFocusItem)
            place = place.parent;
        if (place)
            heir.forceActiveFocus(usedKeys ? Qt.TabFocusReason : Qt.OtherFocusReason);
        else
            heir.focus = true; // somebody else is at the keyboard, a sheet perhaps
    }

    component StepButton: ActionButton {
        required property real room

        signal reached(visibly: bool)
        signal lost

        width: Math.min(implicitWidth, room)
        onActiveFocusChanged: if (activeFocus)
            reached(visualFocus)
        onVisualFocusChanged: if (activeFocus)
            reached(visualFocus)
        onVisibleChanged: if (!visible && focus)
            lost()
    }

    visible: phase !== UpdateSettings.Phase.idle
    spacing: 14

    /// Only when all that changes with the phase has changed.
    Timer {
        id: passing

        interval: 0
        onTriggered: status.passFocus()
    }

    OutcomeLine {
        width: parent.width
        text: status.updates.headline
        strong: status.phase === UpdateSettings.Phase.available
        busy: status.isBusy
        problem: status.phase === UpdateSettings.Phase.failed
        icon: status.isDone ? Icons.check : status.phase === UpdateSettings.Phase.waiting ? Icons.clockArrow
            : Icons.download
        tint: status.isDone ? Theme.ok : Theme.accentText
    }

    NotesBox {
        width: parent.width
        visible: text !== "" && (status.phase === UpdateSettings.Phase.available
            || status.phase === UpdateSettings.Phase.downloading || status.phase === UpdateSettings.Phase.preparing
            || status.phase === UpdateSettings.Phase.waiting || status.phase === UpdateSettings.Phase.installed)
        name: qsTr("What is new")
        text: status.updates.notes
    }

    Item {
        width: parent.width
        height: stopButton.height
        visible: status.phase === UpdateSettings.Phase.downloading

        ProgressLine {
            objectName: "progress"
            anchors.verticalCenter: parent.verticalCenter
            width: parent.width - stopButton.width - 16
            name: qsTr("Download")
            share: status.updates.progress
        }

        StepButton {
            id: stopButton

            room: status.width
            onReached: visibly => status.usedKeys = visibly
            onLost: passing.start()
            anchors.right: parent.right
            visible: status.phase === UpdateSettings.Phase.downloading
            size: ActionButton.Compact
            text: qsTr("Stop")
            Accessible.name: qsTr("Stop the download")
            onClicked: status.updates.stop()
        }
    }

    StepButton {
        id: installButton

        room: status.width
        onReached: visibly => status.usedKeys = visibly
        onLost: passing.start()
        visible: status.phase === UpdateSettings.Phase.available
        kind: ActionButton.Primary
        text: qsTr("Download and Install")
        onClicked: status.updates.install()
    }

    StepButton {
        id: retryButton

        room: status.width
        onReached: visibly => status.usedKeys = visibly
        onLost: passing.start()
        visible: status.phase === UpdateSettings.Phase.failed
        icon: Icons.refresh
        text: qsTr("Try Again")
        onClicked: status.updates.install()
    }
}
