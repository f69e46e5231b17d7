// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

import QtQuick

/// A coloured dot beside the words that say the same.
Item {
    id: dot

    required property color color
    property bool halo: false
    property real side: halo ? 9 : 7

    implicitWidth: halo ? 17 : side
    implicitHeight: implicitWidth

    Rectangle {
        anchors.fill: parent
        visible: dot.halo
        radius: width / 2
        color: dot.color
        opacity: 0.22
    }

    Rectangle {
        anchors.centerIn: parent
        width: dot.side
        height: dot.side
        radius: dot.side / 2
        color: dot.color
    }
}
