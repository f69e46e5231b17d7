// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

import QtQuick
import Quorvane.Components

/// What something is, and at its right the control for it; below it, where the control leaves the words no room.
Item {
    id: row

    required property string title
    property string note: ""
    /// The control, which has the row's words as its name and description unless they are spoken on their own.
    default property alias control: trailing.data
    property bool speaks: false

    readonly property bool stacks: trailing.width > 0.62 * width

    width: parent?.width ?? 0
    implicitHeight: stacks ? words.height + 10 + trailing.height : Math.max(38, words.height, trailing.height)

    Column {
        id: words

        y: row.stacks ? 0 : Math.round((row.height - height) / 2)
        width: row.stacks ? row.width : row.width - trailing.width - 16
        spacing: 2

        Label {
            width: parent.width
            style: Label.Strong
            text: row.title
            wrapMode: Text.Wrap
            Accessible.role: Accessible.StaticText
            Accessible.name: text
            Accessible.ignored: !row.speaks
        }

        Label {
            width: parent.width
            visible: text !== ""
            style: Label.Small
            text: row.note
            color: Theme.text2
            wrapMode: Text.Wrap
            Accessible.role: Accessible.StaticText
            Accessible.name: text
            Accessible.ignored: !row.speaks
        }
    }

    Item {
        id: trailing

        x: row.stacks ? 0 : row.width - width
        y: row.stacks ? words.height + 10 : Math.round((row.height - height) / 2)
        width: childrenRect.width
        height: childrenRect.height
    }
}
