// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

import QtQuick

/// One name in a FolderList.
Rectangle {
    id: row

    required property int index
    required property string modelData
    readonly property bool isCurrent: ListView.isCurrentItem

    signal activated

    width: ListView.view?.width ?? 0
    height: name.implicitHeight + 12
    radius: 3
    color: isCurrent ? colours.highlight : "transparent"
    Accessible.role: Accessible.ListItem
    Accessible.name: modelData

    SystemPalette { id: colours }

    Text {
        id: name

        anchors.verticalCenter: parent.verticalCenter
        x: 8
        width: parent.width - 2 * x
        text: row.modelData
        textFormat: Text.PlainText
        elide: Text.ElideMiddle
        color: row.isCurrent ? colours.highlightedText : colours.text
    }

    MouseArea {
        anchors.fill: parent
        onPressed: {
            row.ListView.view.forceActiveFocus();
            row.ListView.view.currentIndex = row.index;
        }
        onDoubleClicked: row.activated()
    }
}
