// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

import QtQuick
import Quorvane.Components

/// The first row of a page: its title, and what is put into it at the right.
Item {
    id: heading

    required property string title
    default property alias actions: row.data

    implicitWidth: 400
    implicitHeight: 42

    Label {
        anchors.left: parent.left
        anchors.right: row.left
        anchors.rightMargin: 16
        anchors.verticalCenter: parent.verticalCenter
        style: Label.Display
        text: heading.title
        Accessible.role: Accessible.Heading
        Accessible.name: text
    }

    Row {
        id: row

        anchors.right: parent.right
        anchors.verticalCenter: parent.verticalCenter
        spacing: 10
    }
}
