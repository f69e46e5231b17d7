// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

import QtQuick
import Quorvane.Components

/// A card of settings that belong together.
Card {
    id: group

    required property string title
    /// One of `Icons`.
    required property string icon
    property string note: ""
    default property alias rows: column.data

    padding: 20
    Accessible.role: Accessible.Grouping
    Accessible.name: title
    Accessible.description: note

    Item {
        width: parent.width
        height: 18

        LineIcon {
            anchors.verticalCenter: parent.verticalCenter
            width: 19
            height: 19
            outline: group.icon
            color: Theme.accentText
        }

        Label {
            x: 30
            anchors.verticalCenter: parent.verticalCenter
            width: parent.width - x
            style: Label.CardHead
            font.pixelSize: 16
            text: group.title
            Accessible.role: Accessible.Heading
            Accessible.name: text
        }
    }

    Column {
        id: column

        y: 34
        width: parent.width
        spacing: 16

        Label {
            width: parent.width
            visible: text !== ""
            style: Label.Small
            text: group.note
            color: Theme.text2
            wrapMode: Text.Wrap
        }
    }
}
