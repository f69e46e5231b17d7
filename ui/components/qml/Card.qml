// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

import QtQuick
import Quorvane.Components

/// A flat card around what is put into it; as high as that and the padding, unless told otherwise.
Rectangle {
    id: card

    property real padding: 18
    default property alias content: inside.data

    implicitWidth: inside.childrenRect.width + 2 * padding
    implicitHeight: Math.ceil(inside.childrenRect.height) + 2 * padding
    radius: 16
    color: Theme.card
    border.width: 1
    border.color: Theme.line

    Item {
        id: inside

        anchors.fill: parent
        anchors.margins: card.padding
    }
}
