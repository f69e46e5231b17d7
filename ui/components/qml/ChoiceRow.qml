// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

import QtQuick
import QtQuick.Templates as T
import Quorvane.Components

/// One text of a `ChoiceBox`'s list.
T.ItemDelegate {
    id: row

    required property string modelData

    width: ListView.view ? ListView.view.width : 0
    implicitHeight: 36
    leftPadding: 10
    rightPadding: 10
    highlighted: ListView.isCurrentItem
    text: modelData

    contentItem: Label {
        verticalAlignment: Text.AlignVCenter
        text: row.text
        Accessible.ignored: true
    }

    background: Rectangle {
        radius: 8
        color: row.highlighted ? Theme.hover : Theme.faded(Theme.hover, 0)
    }
}
