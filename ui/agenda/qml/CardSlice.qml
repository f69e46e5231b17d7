// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

import QtQuick
import Quorvane.Components

/// A slice of a card that goes on above and below it, unless told otherwise: the corners there are covered, which costs
/// less than a clip for each slice.
Item {
    id: slice

    property bool isTop: false
    property bool isBottom: false

    Rectangle {
        anchors.fill: parent
        radius: slice.isTop || slice.isBottom ? 16 : 0
        color: Theme.card
        border.width: 1
        border.color: Theme.line
    }

    Rectangle {
        width: parent.width
        height: parent.height / 2
        visible: !slice.isTop
        color: Theme.line

        Rectangle {
            anchors.fill: parent
            anchors.leftMargin: 1
            anchors.rightMargin: 1
            color: Theme.card
        }
    }

    Rectangle {
        y: height
        width: parent.width
        height: parent.height / 2
        visible: !slice.isBottom
        color: Theme.line

        Rectangle {
            anchors.fill: parent
            anchors.leftMargin: 1
            anchors.rightMargin: 1
            color: Theme.card
        }
    }
}
