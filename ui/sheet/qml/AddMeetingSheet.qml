// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

import QtQuick
import Quorvane.Components
import Quorvane.Sheet

/// Adding a meeting that is in no calendar: a sheet over all of the window, which keeps keyboard and pointer to itself.
FocusScope {
    id: sheet

    required property MeetingForm form

    /// How far it has come up, 0 to 1.
    property real presence: 0

    readonly property Item focusedItem: Window.activeFocusItem

    signal dismissed

    function reveal() {
        if (activeFocus && focusedItem)
            body.reveal(focusedItem);
    }

    onFocusedItemChanged: reveal()
    onHeightChanged: reveal()
    focus: true
    Accessible.role: Accessible.Dialog
    Accessible.name: qsTr("Add a meeting")
    Keys.onEscapePressed: dismissed()
    Keys.onReturnPressed: form.save()
    Keys.onEnterPressed: form.save()
    Component.onCompleted: {
        body.begin();
        rising.start();
    }

    Connections {
        target: sheet.form

        function onDismissed() {
            sheet.dismissed();
        }
    }

    NumberAnimation {
        id: rising

        target: sheet
        property: "presence"
        to: 1
        duration: 200
        easing.type: Easing.OutCubic
    }

    Rectangle {
        anchors.fill: parent
        color: Theme.scrim
        opacity: sheet.presence
    }

    MouseArea {
        anchors.fill: parent
        hoverEnabled: true
        acceptedButtons: Qt.AllButtons
        onWheel: wheel => wheel.accepted = true
    }

    FocusFence {
        id: first

        onEntered: last.goBack()
    }

    Item {
        id: panel

        objectName: "panel"
        anchors.horizontalCenter: parent.horizontalCenter
        y: Math.round((parent.height - height) / 2 + (Theme.reduceMotion ? 0 : 16 * (1 - sheet.presence)))
        width: Math.min(520, parent.width - 24)
        height: Math.min(body.contentHeight, parent.height - 12)
        opacity: sheet.presence

        SheetShadow {
            anchors.fill: parent
        }

        Rectangle {
            anchors.fill: parent
            radius: 22
            color: Theme.sheet
            border.width: 1
            border.color: Theme.sheetLine
        }

        SheetBody {
            id: body

            anchors.fill: parent
            focus: true
            form: sheet.form
            onCancelled: sheet.dismissed()
        }
    }

    FocusFence {
        id: last

        onEntered: first.goOn()
    }
}
