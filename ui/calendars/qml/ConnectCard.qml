// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

import QtQuick
import Quorvane.Components

/// One kind of source: connects it, or one more of it.
PressControl {
    id: card

    required property string detail
    required property bool isConnected
    /// What else is to be known before.
    property string explanation: ""

    readonly property bool showsFurther: width > 320

    implicitHeight: 66
    Accessible.description: explanation === "" ? detail : qsTr("%1. %2").arg(detail).arg(explanation)

    background: Rectangle {
        radius: 16
        color: Theme.mixed(Theme.card, Theme.rowHover, card.hoverShare)
        border.width: 1
        border.color: Theme.line
    }

    contentItem: Item {
        IconTile {
            x: 14
            y: 14
            icon: card.isConnected ? Icons.check : Icons.plus
            tint: card.isConnected ? Theme.ok : Theme.accentText
            color: Theme.faded(card.isConnected ? Theme.ok : Theme.accent, 0.16)
        }

        Label {
            x: 64
            y: 13
            width: parent.width - x - (card.showsFurther ? 42 : 12)
            style: Label.Strong
            text: card.name
            Accessible.ignored: true
        }

        Label {
            x: 64
            y: 35
            width: parent.width - x - (card.showsFurther ? 42 : 12)
            style: Label.Small
            text: card.detail
            color: Theme.text2
            Accessible.ignored: true
        }

        LineIcon {
            anchors.verticalCenter: parent.verticalCenter
            x: parent.width - width - 16
            visible: card.showsFurther
            width: 17
            height: 17
            outline: Icons.chevron
            color: Theme.text2
        }
    }

    FocusRing {
        visible: card.showsFocus
        targetRadius: 16
    }
}
