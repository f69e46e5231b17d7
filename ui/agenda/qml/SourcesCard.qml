// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

import QtQuick
import Quorvane.Agenda
import Quorvane.Components

/// The sources of calendars. What the model says of them all is read here when one needs a word, else in a tooltip.
Card {
    id: card

    required property SourceRows sources

    implicitHeight: lines.y + lines.height + (sources.count > 0 ? 15 : 18) + padding

    Accessible.role: Accessible.Grouping
    Accessible.name: qsTr("Sources")
    Accessible.description: sources.status

    Label {
        id: head

        height: 24
        verticalAlignment: Text.AlignVCenter
        style: Label.CardHead
        text: qsTr("Sources")
        Accessible.role: Accessible.Heading
        Accessible.name: text

        HoverHandler {
            id: pointer
        }

        ToolTipText {
            target: head
            text: card.sources.status
            wanted: pointer.hovered
        }
    }

    IconButton {
        objectName: "refresh"
        anchors.right: parent.right
        anchors.rightMargin: -7
        anchors.verticalCenter: head.verticalCenter
        visible: card.sources.count > 0
        enabled: !card.sources.isRefreshing
        icon: Icons.refresh
        name: qsTr("Refresh all sources")
        onClicked: card.sources.refresh()
    }

    Column {
        id: lines

        y: 38
        width: parent.width
        spacing: 10

        Label {
            width: parent.width
            visible: card.sources.count === 0
            style: Label.Small
            text: qsTr("No calendar connected yet.")
            color: Theme.text3
        }

        Repeater {
            model: card.sources

            SourceItem {}
        }

        Label {
            width: parent.width
            visible: card.sources.needsWord
            style: Label.Small
            text: card.sources.status
            color: Theme.text3
            wrapMode: Text.Wrap
            Accessible.role: Accessible.StaticText
            Accessible.name: text
        }
    }
}
