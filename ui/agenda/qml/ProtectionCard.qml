// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

import QtQuick
import Quorvane.Agenda
import Quorvane.Components

/// What keeps the user from missing a meeting, and the pause.
Card {
    id: card

    required property Protection protection

    implicitHeight: pause.y + pause.height + 2 * padding

    Accessible.role: Accessible.Grouping
    Accessible.name: qsTr("Protection")

    Label {
        id: head

        y: 1
        width: parent.width
        height: 20
        verticalAlignment: Text.AlignVCenter
        style: Label.CardHead
        text: qsTr("Protection")
        Accessible.role: Accessible.Heading
        Accessible.name: text
    }

    ProtectionLine {
        id: screens

        y: 35
        width: parent.width
        title: qsTr("Screen alerts")
        state: card.protection.screenText
        icon: card.protection.isPaused ? Icons.pause : Icons.display
        isGood: true
        isBad: card.protection.isPaused
    }

    ProtectionLine {
        id: phone

        anchors.top: screens.bottom
        anchors.topMargin: 16
        width: parent.width
        title: qsTr("Phone delivery")
        state: card.protection.phoneText
        detail: card.protection.phoneDetail
        icon: Icons.phone
        isGood: card.protection.isPhoneReady
        isBad: card.protection.hasPhoneFailed
    }

    ActionButton {
        id: pause

        objectName: "pause"
        anchors.top: phone.bottom
        anchors.topMargin: 16
        width: parent.width
        size: ActionButton.Heading
        kind: card.protection.isPaused ? ActionButton.Primary : ActionButton.Secondary
        text: card.protection.isPaused ? qsTr("Resume now") : qsTr("Pause for 5 minutes")
        icon: card.protection.isPaused ? Icons.play : Icons.pause
        onClicked: card.protection.togglePause()
    }
}
