// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

import QtQuick
import Quorvane.Calendars

/// The kinds of sources that can be connected, side by side where there is room.
Grid {
    id: cards

    required property CalendarChoices calendars

    readonly property real cardWidth: columns === 1 ? width : Math.floor((width - 2 * spacing) / 3)

    columns: width < 800 ? 1 : 3
    spacing: 12

    ConnectCard {
        objectName: "connectSystem"
        width: cards.cardWidth
        name: qsTr("Connect system calendars")
        detail: isConnected ? qsTr("Connected") : qsTr("The accounts of this desktop")
        isConnected: cards.calendars.systemConnected
        onClicked: cards.calendars.connectSystem()
    }

    ConnectCard {
        objectName: "connectFolder"
        width: cards.cardWidth
        name: qsTr("Connect a folder")
        detail: isConnected ? cards.calendars.foldersText : qsTr("Calendar files (.ics)")
        isConnected: cards.calendars.foldersText !== ""
        onClicked: cards.calendars.connectFolder()
    }

    ConnectCard {
        objectName: "connectFantastical"
        width: cards.cardWidth
        name: qsTr("Connect Fantastical")
        detail: isConnected ? qsTr("Connected") : qsTr("Choose its Database folder")
        explanation: cards.calendars.fantasticalExplanation
        isConnected: cards.calendars.fantasticalConnected
        onClicked: cards.calendars.connectFantastical()
    }
}
